// SPDX-License-Identifier: LGPL-2.1-or-later
// Device model, averaging and zeroing: every number of the stack after every step of a long random history.
#include "tests/proxies/Averages.h"
#include "tests/proxies/ProxyTest.h"

#include <limits>

using namespace Corvale_Qt;

namespace {

// What the stack shows, computed from the definitions for everything that happens to the source.
struct Expected
{
    struct Channel
    {
        QVector<double> averages;
        // The last finite average among the dropped rows.
        double gone = qQNaN();
        double zero = 0.0;
    };

    void resetTo(const BufferModel &model)
    {
        zeroed = zeroed && channels.size() == model.NumberOfChannels();
        channels.resize(model.NumberOfChannels());
        renew(model, 1);
    }
    void renew(const BufferModel &model, int from)
    {
        for (int column = 1; column <= channels.size(); ++column)
            renew(model, from, column);
    }
    void renew(const BufferModel &model, int from, int column)
    {
        Channel &own = channels[column - 1];
        if (from <= 1)
            own.gone = qQNaN();
        average(columnOf(model, column), length, from - 1, own.averages, own.gone);
    }
    void drop(int count)
    {
        for (Channel &own : channels) {
            own.gone = lastFinite(own.averages, count, own.gone);
            own.averages.remove(0, count);
        }
    }
    void zeroNow(const Units::MeasurementUnit *unit)
    {
        for (Channel &own : channels)
            own.zero = unit->unscale(lastFinite(own.averages, own.averages.size(), 0.0));
        zeroed = true;
    }
    double shown(const Units::MeasurementUnit *unit, int row, int column) const
    {
        const Channel &own = channels[column - 1];
        return own.averages[row - 1] - (zeroed ? unit->scale(own.zero) : 0.0);
    }

    int length = 1;
    bool zeroed = false;
    QVector<Channel> channels;
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
    void anyHistory_data()
    {
        QTest::addColumn<int>("channels");
        QTest::newRow("one channel") << 1;
        QTest::newRow("three channels") << 3;
        QTest::newRow("ten channels") << 10;
    }
    void anyHistory()
    {
        QFETCH(int, channels);
        std::mt19937 random{unsigned(channels)};
        const auto below = [&random](int limit) {
            return int(random() % unsigned(limit));
        };
        const auto reading = [&] {
            const double infinity = std::numeric_limits<double>::infinity();
            const double gaps[] = {qQNaN(), qQNaN(), infinity, -infinity};
            return below(12) == 0 ? gaps[below(4)] : below(100000) / 7.0;
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
                QVector<BufferModel::Sample> samples(1 + (what < 50 ? 0 : below(4)));
                for (BufferModel::Sample &sample : samples) {
                    sample.time = act;
                    for (int c = 0; c < source->NumberOfChannels(); ++c)
                        sample.values << reading();
                }
                source->append(samples);
                expected.drop(std::max(rows + samples.size() - source->MaxBufferSize(), 0));
                expected.renew(*source, source->rowCount() - samples.size());
            } else if (what < 62 && rows > 0) {
                const int count = 1 + below(rows);
                source->dropOldest(count);
                expected.drop(count);
            } else if (what < 75 && rows > 0) {
                const int row = below(3) ? 1 + below(rows) : rows;
                const int column = 1 + below(source->NumberOfChannels());
                source->change(row, column, reading());
                expected.renew(*source, row, column);
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
                expected.channels.prepend({});
                expected.zeroed = false;
                expected.renew(*source, 1, 1);
            } else if (what == 93 && source->NumberOfChannels() > 1) {
                source->removeFirstChannel();
                expected.channels.removeFirst();
                expected.zeroed = false;
            } else if (what == 94 && rows > 1) {
                const int row = 2 + below(rows - 1);
                source->remove(row, row);
                expected.renew(*source, row);
            } else if (what == 95 && rows > 1 && rows < source->MaxBufferSize()) {
                const int row = 2 + below(rows - 1);
                source->insert(row, {0.0, QVector<double>(source->NumberOfChannels(), act)});
                expected.renew(*source, row);
            } else if (what == 96) {
                const QModelIndex box = source->index(0, 1);
                source->setData(box, !box.data(Qt::CheckStateRole).toBool(), Qt::CheckStateRole);
            }
            const QString error =
                difference(*source, top, expected) + account.error() + mirror.error();
            if (!error.isEmpty())
                QFAIL(qPrintable(QString("after act %1 (%2): %3").arg(act).arg(what).arg(error)));
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_ProxyStack)
#include "tst_ProxyStack.moc"
