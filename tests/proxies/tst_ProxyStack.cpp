// SPDX-License-Identifier: LGPL-2.1-or-later
// Device model, averaging and zeroing: every number of the stack after every step of a long random history.
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/RowAccount.h"
#include "tests/support/TableMirror.h"
#include "tests/support/TestMain.h"

#include <cmath>
#include <limits>
#include <random>

using namespace Corvale_Qt;

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

// What the stack shows, computed from the definitions for everything that happens to the source.
struct Expected
{
    static double lastFinite(const QVector<double> &values, int before, double otherwise)
    {
        for (int i = before - 1; i >= 0; --i) {
            if (std::isfinite(values[i]))
                return values[i];
        }
        return otherwise;
    }
    void resetTo(const BufferModel &model)
    {
        averages.resize(model.columnCount() - 1);
        gone.resize(averages.size());
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
            if (from <= 1)
                gone[c - 1] = gap;
            for (int r = from; r < model.rowCount(); ++r) {
                const double reading = model.doubleData(r, c);
                const double before = lastFinite(own, r - 1, gone[c - 1]);
                const bool averaged = length > 1 && std::isfinite(reading) && std::isfinite(before);
                own[r - 1] = averaged ? (1.0 - alpha) * before + alpha * reading : reading;
            }
        }
    }
    void drop(int count)
    {
        for (int c = 0; c < averages.size(); ++c) {
            gone[c] = lastFinite(averages[c], count, gone[c]);
            averages[c].remove(0, count);
        }
    }
    void insertChannelInFront(const BufferModel &model)
    {
        averages.prepend({});
        gone.prepend(gap);
        zeros.prepend(0.0);
        zeroed = false;
        renew(model, 1, 1, 1);
    }
    void removeFirstChannel()
    {
        averages.removeFirst();
        gone.removeFirst();
        zeros.removeFirst();
        zeroed = false;
    }
    void zeroNow(const Units::MeasurementUnit *unit)
    {
        for (int c = 0; c < averages.size(); ++c)
            zeros[c] = unit->unscale(lastFinite(averages[c], averages[c].size(), 0.0));
        zeroed = true;
    }
    double shown(const Units::MeasurementUnit *unit, int row, int column) const
    {
        const double average = averages[column - 1][row - 1];
        return zeroed ? average - unit->scale(zeros[column - 1]) : average;
    }

    int length = 1;
    QVector<QVector<double>> averages;
    // The last finite average of each channel among the dropped rows.
    QVector<double> gone;
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
            if (!same(top.doubleData(row, c), value) || !same(data.toDouble(), value))
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
    const TableMirror<RVXZeroingProxyModel> mirror(&top);
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
                    sample.values << (below(12) == 0 ? gap : below(100000) / 7.0);
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
            source->change(row, column, below(12) == 0 ? gap : below(100000) / 3.0);
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
            expected.insertChannelInFront(*source);
        } else if (what == 93 && source->NumberOfChannels() > 1) {
            source->removeFirstChannel();
            expected.removeFirstChannel();
        } else if (what == 94 && rows > 1) {
            const int row = 2 + below(rows - 1);
            source->remove(row, row);
            expected.renew(*source, 1, expected.averages.size(), row);
        } else if (what == 95 && rows > 1 && rows < source->MaxBufferSize()) {
            const int row = 2 + below(rows - 1);
            source->insert(row, {0.0, QVector<double>(source->NumberOfChannels(), act)});
            expected.renew(*source, 1, expected.averages.size(), row);
        } else if (what == 96) {
            const QModelIndex box = source->index(0, 1);
            source->setData(box, !box.data(Qt::CheckStateRole).toBool(), Qt::CheckStateRole);
        }
        const QString error = difference(*source, top, expected) + account.error() + mirror.error();
        if (!error.isEmpty())
            QFAIL(qPrintable(QString("after act %1 (%2): %3").arg(act).arg(what).arg(error)));
    }
}

CORVALE_QT_TEST_MAIN(tst_ProxyStack)
#include "tst_ProxyStack.moc"
