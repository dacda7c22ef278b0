// SPDX-License-Identifier: LGPL-2.1-or-later
// Device model, averaging and zeroing: every number of the stack after every step of a long random history.
// The ranges kept for blocks of samples, while samples are added, dropped and changed.
#include "tests/proxies/Averages.h"
#include "tests/proxies/ProxyTest.h"
#include "tests/support/SeriesBounds.h"

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

QString difference(const BufferModel &source, const RVXZeroingProxyModel &top,
                   const Expected &expected)
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

//! A source with the stack on it, to which anything may happen. What the stack must show is kept beside it.
class History
{
public:
    explicit History(int channels)
        : m_random{unsigned(channels)}
        , m_first(channels, 20)
        , m_second(channels, 7)
    {
        m_averaging.setSourceModel(m_source);
        m_top.setSourceModel(&m_averaging);
        m_account.emplace(&m_top);
        m_mirror.emplace(&m_top);
        m_expected.resetTo(*m_source);
    }

    //! Lets the next thing happen. Returns what it was and what is wrong after it; empty if nothing is.
    QString next()
    {
        ++m_act;
        const int what = below(100);
        if (what < 75)
            changeReadings(what);
        else if (what < 91)
            changeSettings(what);
        else
            changeStructure(what);
        const QString error =
            difference(*m_source, m_top, m_expected) + m_account->error() + m_mirror->error();
        return error.isEmpty()
            ? error
            : QStringLiteral("after act %1 (%2): %3").arg(m_act).arg(what).arg(error);
    }

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }
    double reading()
    {
        const double infinity = std::numeric_limits<double>::infinity();
        const double gaps[] = {qQNaN(), qQNaN(), infinity, -infinity};
        return below(12) == 0 ? gaps[below(4)] : below(100000) / 7.0;
    }
    int rows() const { return m_source->rowCount() - 1; }

    void changeReadings(int what)
    {
        if (what < 55) {
            append(1 + (what < 50 ? 0 : below(4)));
        } else if (what < 62 && rows() > 0) {
            const int count = 1 + below(rows());
            m_source->dropOldest(count);
            m_expected.drop(count);
        } else if (rows() > 0) {
            const int row = below(3) ? 1 + below(rows()) : rows();
            const int column = 1 + below(m_source->NumberOfChannels());
            m_source->change(row, column, reading());
            m_expected.renew(*m_source, row, column);
        }
    }
    void append(int count)
    {
        const int before = rows();
        QVector<BufferModel::Sample> samples(count);
        for (BufferModel::Sample &sample : samples) {
            sample.time = m_act;
            for (int c = 0; c < m_source->NumberOfChannels(); ++c)
                sample.values << reading();
        }
        m_source->append(samples);
        m_expected.drop(std::max(before + count - m_source->MaxBufferSize(), 0));
        m_expected.renew(*m_source, m_source->rowCount() - count);
    }
    void changeSettings(int what)
    {
        if (what < 78) {
            m_expected.length = below(3) == 0 ? 1 : 1 + below(40);
            m_averaging.setAveraging(m_expected.length);
            m_expected.resetTo(*m_source);
        } else if (what < 82) {
            m_top.zeroNow();
            m_expected.zeroNow(m_source->units());
        } else if (what < 84) {
            m_top.zeroClear();
            m_expected.zeroed = false;
        } else if (what < 87) {
            m_source->SetUnits(below(2) ? static_cast<const Units::MeasurementUnit *>(&m_mA)
                                        : &m_A);
            if (rows() > 0)
                m_expected.resetTo(*m_source);
        } else if (what < 89) {
            m_source = m_source == &m_first ? &m_second : &m_first;
            m_averaging.setSourceModel(m_source);
            m_expected.resetTo(*m_source);
        } else {
            m_source->rollOver = BufferModel::RollOver(below(2));
        }
    }
    void changeStructure(int what)
    {
        if (what == 91) {
            m_top.Clear();
            m_expected.resetTo(*m_source);
        } else if (what == 92) {
            m_source->insertChannelInFront(5.0);
            m_expected.channels.prepend({});
            m_expected.zeroed = false;
            m_expected.renew(*m_source, 1, 1);
        } else if (what == 93 && m_source->NumberOfChannels() > 1) {
            m_source->removeFirstChannel();
            m_expected.channels.removeFirst();
            m_expected.zeroed = false;
        } else if (what == 94 && rows() > 1) {
            const int row = 2 + below(rows() - 1);
            m_source->remove(row, row);
            m_expected.renew(*m_source, row);
        } else if (what == 95 && rows() > 1 && rows() < m_source->MaxBufferSize()) {
            const int row = 2 + below(rows() - 1);
            m_source->insert(row, {0.0, QVector<double>(m_source->NumberOfChannels(), m_act)});
            m_expected.renew(*m_source, row);
        } else if (what == 96) {
            const QModelIndex box = m_source->index(0, 1);
            m_source->setData(box, !box.data(Qt::CheckStateRole).toBool(), Qt::CheckStateRole);
        }
    }

    std::mt19937 m_random;
    const Units::mA m_mA;
    const Units::A m_A;
    BufferModel m_first;
    BufferModel m_second;
    BufferModel *m_source = &m_first;
    RVXAveragingProxyModel m_averaging;
    RVXZeroingProxyModel m_top;
    std::optional<RowAccount> m_account;
    std::optional<TableMirror<RVXZeroingProxyModel>> m_mirror;
    Expected m_expected;
    int m_act = 0;
};

struct Stack
{
    Stack()
    {
        merged.addSourceModel(&model, 1);
        averaging.setSourceModel(&merged);
        zeroing.setSourceModel(&averaging);
    }
    int below(int limit) { return int(random() % unsigned(limit)); }

    void add(int count, bool atOnce, int oneGapIn = 0)
    {
        model.setAutoUpdate(!atOnce);
        for (int i = 0; i < count; ++i) {
            const bool isGap = oneGapIn > 0 && below(oneGapIn) == 0;
            model.AddData(now += 1.0, isGap ? qQNaN() : value(random));
        }
        model.UpdateView();
    }

    RVXSingleChannelDataModel model;
    RVXMultichannelProxyModel merged;
    RVXAveragingProxyModel averaging;
    RVXZeroingProxyModel zeroing;
    std::mt19937 random{11};
    // A heavy tail, so that the extremes are single samples.
    std::cauchy_distribution<double> value{0.0, 1.0};
    double now = 0.0;
};

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
        History history(cell<int>("channels"));
        for (int act = 0; act < 4000; ++act) {
            const QString error = history.next();
            if (!error.isEmpty())
                QFAIL(qPrintable(error));
        }
    }

    void areThoseOfTheCells()
    {
        Stack stack;
        for (int step = 0; step < 28; ++step) {
            const int what = stack.below(8);
            if (step == 0 || step == 14)
                stack.add(step == 0 ? 5000 : 120000, true);
            else if (what < 3)
                stack.add(stack.below(4000), true, what == 0 ? 100 : 0);
            else if (what == 3)
                stack.add(stack.below(400), false);
            else if (what < 6)
                stack.averaging.setAveraging(1 + stack.below(20));
            else if (what == 6)
                stack.zeroing.zeroNow();
            else if (step % 2 == 0)
                stack.model.Clear();
            else
                stack.model.setData(stack.model.index(0, 1), Qt::Unchecked, Qt::CheckStateRole);
            compare(stack, step % 3 == 2);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QString("step %1: %2").arg(step).arg(what)));
        }
    }

private:
    void compare(Stack &stack, bool all)
    {
        const int rows = stack.model.rowCount() - 1;
        for (const RVXAbstractPlotDataModel *model :
             {static_cast<const RVXAbstractPlotDataModel *>(&stack.model),
              static_cast<const RVXAbstractPlotDataModel *>(&stack.averaging),
              static_cast<const RVXAbstractPlotDataModel *>(&stack.zeroing)}) {
            int length = 1;
            int first = 1;
            for (int i = 0; i < 6 && rows > 0; ++i) {
                if (i % 2 == 1) { // some rows further, as a chart that follows them
                    first = std::min(first + stack.below(100), rows - length + 1);
                } else {
                    length = std::min(rows, all && i == 0 ? rows : 1 + stack.below(3000));
                    first = 1 + stack.below(rows - length + 1);
                }
                const RVXSeriesData series(*model, 1, first, first + length - 1);
                QCOMPARE(series.boundingRect(), boundsByHand(series));
            }
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_ProxyStack)
#include "tst_ProxyStack.moc"
