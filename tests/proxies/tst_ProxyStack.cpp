// SPDX-License-Identifier: LGPL-2.1-or-later
// Device model, averaging, zeroing: every number of the stack after every step of a long random history.
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/RowAccount.h"
#include "tests/support/TestMain.h"

#include <random>

using namespace Corvale_Qt;

namespace {

// The three models computed anew, as they are defined, from what happens to the source.
struct Expected
{
    void resetTo(const BufferModel &model)
    {
        averages.resize(model.columnCount() - 1);
        if (zeros.size() != averages.size()) {
            zeros.resize(averages.size());
            zeroed = false;
        }
        renew(model, 1, averages.size(), 1);
    }
    void renew(const BufferModel &model, int firstColumn, int lastColumn, int from)
    {
        const double alpha = 1.0 / length;
        for (int c = firstColumn; c <= lastColumn; ++c) {
            QVector<double> &own = averages[c - 1];
            own.resize(model.rowCount() - 1);
            for (int r = from; r < model.rowCount(); ++r) {
                own[r - 1] = model.doubleData(r, c);
                if (length > 1 && r >= 2)
                    own[r - 1] = (1.0 - alpha) * own[r - 2] + alpha * own[r - 1];
            }
        }
    }
    void drop(int count)
    {
        for (QVector<double> &own : averages)
            own.remove(0, count);
    }
    void zeroNow(const Units::MeasurementUnit *unit)
    {
        for (int c = 0; c < averages.size(); ++c)
            zeros[c] = unit->unscale(averages[c].isEmpty() ? 0.0 : averages[c].last());
        zeroed = true;
    }
    double shown(const Units::MeasurementUnit *unit, int row, int column) const
    {
        const double average = averages[column - 1][row - 1];
        return zeroed ? average - unit->scale(zeros[column - 1]) : average;
    }

    int length = 1;
    QVector<QVector<double>> averages;
    QVector<double> zeros;
    bool zeroed = false;
};

QString
difference(const BufferModel &source, const RVXZeroingProxyModel &top, const Expected &expected)
{
    if (top.rowCount() != source.rowCount() || top.columnCount() != source.columnCount())
        return QStringLiteral("another shape");
    for (int row = 1; row < top.rowCount(); ++row) {
        if (top.doubleData(row, 0) != source.doubleData(row, 0))
            return QStringLiteral("time of row %1").arg(row);
        for (int c = 1; c < top.columnCount(); ++c) {
            const double value = expected.shown(source.units(), row, c);
            const QVariant data =
                top.index(row, c).data(RVXAbstractPlotDataModel::NumericValueRole);
            if (top.doubleData(row, c) != value || data.toDouble() != value)
                return QStringLiteral("row %1, channel %2").arg(row).arg(c);
        }
    }
    return QString();
}

} // namespace

class tst_ProxyStack : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyHistory_data();
    void anyHistory();
    void theTesterWatchesTheStack();
};

void tst_ProxyStack::anyHistory_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<int>("channels");
    QTest::newRow("one channel") << 1 << 1;
    QTest::newRow("three channels") << 2 << 3;
    QTest::newRow("ten channels") << 3 << 10;
}

void tst_ProxyStack::anyHistory()
{
    QFETCH(int, seed);
    QFETCH(int, channels);
    std::mt19937 random{unsigned(seed)};
    const auto below = [&random](int limit) {
        return int(random() % unsigned(limit));
    };
    const Units::mA mA;
    const Units::A A;
    BufferModel first(channels, 20);
    BufferModel second(channels, 7);
    BufferModel *source = &first;
    RVXAveragingProxyModel averaging;
    RVXZeroingProxyModel top;
    averaging.setSourceModel(source);
    top.setSourceModel(&averaging);
    const RowAccount account(&top);
    Expected expected;
    expected.resetTo(*source);

    for (int act = 0; act < 4000; ++act) {
        const int rows = source->rowCount() - 1;
        const int what = below(100);
        if (what < 55) {
            const int capacity = source->MaxBufferSize();
            QVector<BufferModel::Sample> samples(1 + (what < 50 ? 0 : below(4)));
            for (BufferModel::Sample &sample : samples) {
                sample.time = act;
                for (int c = 0; c < source->NumberOfChannels(); ++c)
                    sample.values << below(100000) / 7.0;
            }
            source->append(samples);
            expected.drop(std::max(rows + samples.size() - capacity, 0));
            expected.renew(*source,
                           1,
                           expected.averages.size(),
                           source->rowCount() - samples.size());
        } else if (what < 62 && rows > 0) {
            const int count = 1 + below(rows);
            source->dropOldest(count);
            expected.drop(count);
        } else if (what < 75 && rows > 0) {
            const int row = 1 + below(rows);
            const int column = 1 + below(source->NumberOfChannels());
            source->change(row, column, below(100000) / 3.0);
            expected.renew(*source, column, column, row);
        } else if (what < 78) {
            expected.length = 1 + below(40);
            averaging.setAveraging(expected.length);
            expected.resetTo(*source);
        } else if (what < 82) {
            top.zeroNow();
            expected.zeroNow(source->units());
        } else if (what < 84) {
            top.zeroClear();
            expected.zeroed = false;
        } else if (what < 87) {
            source->SetUnits(below(2) ? static_cast<const Units::MeasurementUnit *>(&mA) : &A);
            if (rows > 0)
                expected.resetTo(*source);
        } else if (what < 89) {
            source = source == &first ? &second : &first;
            averaging.setSourceModel(source);
            expected.resetTo(*source);
        } else if (what < 91) {
            source->rollOver = BufferModel::RollOver(below(2));
        } else if (what == 91) {
            top.Clear();
            expected.resetTo(*source);
        } else if (what == 92) {
            source->insertChannelInFront(5.0);
            expected.resetTo(*source);
            expected.zeroed = false;
        } else if (what == 93 && source->NumberOfChannels() > 1) {
            source->removeFirstChannel();
            expected.resetTo(*source);
            expected.zeroed = false;
        }
        const QString error = difference(*source, top, expected) + account.error();
        if (!error.isEmpty())
            QFAIL(qPrintable(QString("after act %1 (%2): %3").arg(act).arg(what).arg(error)));
    }
}

void tst_ProxyStack::theTesterWatchesTheStack()
{
    BufferModel source(2, 5);
    source.rollOver = BufferModel::RemoveThenInsert;
    RVXAveragingProxyModel averaging;
    RVXZeroingProxyModel top;
    averaging.setSourceModel(&source);
    top.setSourceModel(&averaging);
    const ModelWatch watchTop(&top);
    const ModelWatch watchBelow(&averaging);
    for (int i = 1; i <= 12; ++i) {
        source.append(i, i);
        if (i % 4 == 0)
            averaging.setAveraging(i);
        if (i % 5 == 0)
            top.zeroNow();
    }
    source.change(2, 1, 7);
    top.Clear();
    QCOMPARE(watchTop.complaints() + watchBelow.complaints(), QString());
}

CORVALE_QT_TEST_MAIN(tst_ProxyStack)
#include "tst_ProxyStack.moc"
