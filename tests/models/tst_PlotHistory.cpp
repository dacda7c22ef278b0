// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/HistoryCover_p.h"
#include "corvale_qt/models/HistoryPyramid_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/models/RVXPlotHistory.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

//! All rows that a model ever took, and the model, which remembers few of them as rows.
class Acquisition
{
public:
    Acquisition(int channels, int capacity, qint64 memory, unsigned seed = 1)
        : model(channels)
        , m_random(seed)
    {
        model.setCapacity(capacity);
        model.setHistoryMemory(memory);
        model.setHistorySpan(1e9);
    }

    //! Appends a block of rows. Now and then a reading is missing, a time repeats or is a little early, or an outage comes.
    void append(int rows, bool disturbed)
    {
        std::vector<double> block;
        std::vector<double> stamps;
        for (int i = 0; i < rows; ++i) {
            const unsigned kind = disturbed ? m_random() % 2000 : 1000;
            m_now += kind == 0 ? 500.0 : kind < 4 ? 3.0 : 0.01;
            // A time that is a little early counts as the newest before.
            const bool isEarly = kind == 10 && !times.empty();
            stamps.push_back(isEarly ? m_now - 0.5 : m_now);
            times.push_back(isEarly ? times.back() : m_now);
            for (int c = 0; c < model.NumberOfChannels(); ++c) {
                const bool isMissing = disturbed && m_random() % 50 == 0;
                block.push_back(isMissing ? gap : double(m_random() % 100000) - 50000.0);
                readings.push_back(block.back());
            }
        }
        model.appendRows(stamps.data(), block.data(), rows);
    }

    //! Exchanges the channels, in the model and in the rows that it ever took.
    void exchange(const QVector<int> &former)
    {
        const int before = model.NumberOfChannels();
        model.exchangeChannels(QVector<RVXMultichannelDeviceModel::Channel>(former.size()), former);
        std::vector<double> exchanged;
        for (size_t row = 0; row < times.size(); ++row)
            for (const int column : former)
                exchanged.push_back(
                    column == 0 ? gap : readings[row * size_t(before) + size_t(column - 1)]);
        readings = std::move(exchanged);
    }

    //! Empties the model of all rows that it ever took.
    std::shared_ptr<RVXMultichannelDeviceModel::TakenReadings> take()
    {
        auto taken = model.takeReadings();
        m_taken = std::exchange(times, {});
        m_takenReadings = std::exchange(readings, {});
        return taken;
    }
    void putBefore(const std::shared_ptr<RVXMultichannelDeviceModel::TakenReadings> &taken)
    {
        model.putReadingsBefore(taken);
        times.insert(times.begin(), m_taken.begin(), m_taken.end());
        readings.insert(readings.begin(), m_takenReadings.begin(), m_takenReadings.end());
    }

    const RVXPlotHistory &history() const { return *RVXPlotHistory::of(&model); }
    int dropped() const { return int(times.size()) - (model.rowCount() - 1); }

    //! Returns a block as reading all rows gives it.
    RVXPlotHistory::Block literalBlock(qint64 firstRow, int rows, int column) const
    {
        RVXPlotHistory::Block block{std::numeric_limits<double>::infinity(),
                                    -std::numeric_limits<double>::infinity(), 0.0, 0};
        for (qint64 row = firstRow; row < firstRow + rows; ++row) {
            const double reading =
                readings[size_t(row) * size_t(model.NumberOfChannels()) + size_t(column - 1)];
            if (std::isnan(reading))
                continue;
            block.least = std::min(block.least, reading);
            block.greatest = std::max(block.greatest, reading);
            block.mean += reading;
            ++block.count;
        }
        block.mean /= double(std::max<qint64>(block.count, 1));
        return block;
    }

    RVXMultichannelDeviceModel model;
    std::vector<double> times;
    std::vector<double> readings;

private:
    std::vector<double> m_taken;
    std::vector<double> m_takenReadings;
    std::mt19937 m_random;
    double m_now = 1.0;
};

//! Returns where a block of a level differs from the rows that it stands for.
QString blockFault(const Acquisition &all, int level, qint64 number)
{
    const RVXPlotHistory::Interval when = all.history().interval(level, number);
    const size_t last = size_t(when.firstRow) + size_t(when.rows) - 1;
    if (when.first != all.times[size_t(when.firstRow)] || when.last != all.times[last])
        return QStringLiteral("times");
    double longest = 0.0;
    for (size_t row = size_t(when.firstRow) + 1; row <= last; ++row)
        longest = std::max(longest, all.times[row] - all.times[row - 1]);
    if (when.longestStep != float(longest))
        return QStringLiteral("the longest step is %1, not %2").arg(longest).arg(when.longestStep);
    for (int column = 1; column <= all.model.NumberOfChannels(); ++column) {
        RVXPlotHistory::Block block;
        all.history().read(level, column, number, 1, &block);
        const RVXPlotHistory::Block literal = all.literalBlock(when.firstRow, when.rows, column);
        if (block.count != literal.count || block.least != literal.least
            || block.greatest != literal.greatest || std::abs(block.mean - literal.mean) > 1e-6)
            return QStringLiteral("column %1").arg(column);
    }
    return QString();
}

QString historyFault(const Acquisition &all)
{
    const RVXPlotHistory &history = all.history();
    for (int level = 0; level < history.levels(); ++level) {
        qint64 next = -1;
        for (qint64 i = history.firstBlock(level); i < history.endBlock(level); ++i) {
            const qint64 row = history.interval(level, i).firstRow;
            const QString fault = next >= 0 && row != next ? "rows" : blockFault(all, level, i);
            if (!fault.isEmpty())
                return QStringLiteral("level %1, block %2: %3").arg(level).arg(i).arg(fault);
            next = row + history.interval(level, i).rows;
        }
        if (level == 0 && next != all.dropped())
            return QStringLiteral("level 0 ends at %1, not %2").arg(next).arg(all.dropped());
    }
    return QString();
}

//! Returns which row of the model differs from those that it took.
QString rowsFault(const Acquisition &all)
{
    for (int row = 1; row < all.model.rowCount(); ++row) {
        for (int column = 1; column <= all.model.NumberOfChannels(); ++column) {
            const RVXPlotHistory::Block own = all.literalBlock(all.dropped() + row - 1, 1, column);
            const double shown = all.model.doubleData(row, column);
            if (own.count == 0 ? !std::isnan(shown) : shown != own.mean)
                return QStringLiteral("row %1, column %2").arg(row).arg(column);
        }
    }
    return QString();
}

//! Returns what is wrong with the blocks that a window shows.
QString coverFault(const Acquisition &all, double left, double right, int most)
{
    const RVXPlotHistory &history = all.history();
    const QVector<HistoryPiece> pieces = coverByHistory(history, left, right, most);
    qint64 first = -1;
    qint64 next = -1;
    for (const HistoryPiece &piece : pieces) {
        for (qint64 i = piece.first; i < piece.end; ++i) {
            const RVXPlotHistory::Interval when = history.interval(piece.level, i);
            if (next >= 0 && when.firstRow != next)
                return QStringLiteral("row %1 follows %2").arg(when.firstRow).arg(next);
            first = first < 0 ? when.firstRow : first;
            next = when.firstRow + when.rows;
        }
    }
    if (blocksOf(pieces) > most)
        return QStringLiteral("%1 blocks").arg(blocksOf(pieces));
    const double oldest = history.oldest();
    for (int row = 0; row < all.dropped(); ++row) {
        const double time = all.times[size_t(row)];
        const bool isVisible = time >= std::max(left, oldest) && time <= right;
        if (isVisible && (row < first || row >= next))
            return QStringLiteral("row %1 is not shown").arg(row);
    }
    return QString();
}

} // namespace

class tst_PlotHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void blocksAreTheRows_data()
    {
        columns<int, int, int, bool>("channels", "capacity", "largest", "disturbed");
        row("row by row", 1, 10, 1, false);
        row("row by row, with disturbances", 2, 10, 1, true);
        row("small blocks of rows", 3, 50, 40, true);
        row("more rows at once than the model keeps", 2, 30, 300, true);
        row("many rows", 2, 1000, 2000, true);
    }
    void blocksAreTheRows()
    {
        QFETCH(int, channels);
        // So little memory that the lower levels lose their oldest blocks.
        Acquisition all(channels, cell<int>("capacity"), 1);
        std::mt19937 random(3);
        while (all.times.size() < 20000) {
            all.append(1 + int(random() % unsigned(cell<int>("largest"))), cell<bool>("disturbed"));
            if (random() % 200 == 0)
                QCOMPARE(historyFault(all), QString());
        }
        QCOMPARE(historyFault(all), QString());
        const double end = all.times.back();
        for (int i = 0; i < 60; ++i) {
            const double a = end * double(random() % 1000) / 1000.0;
            const double b = a + end * std::pow(0.5, random() % 14);
            QCOMPARE(coverFault(all, a, b, 100 + int(random() % 1000)), QString());
        }
        QVERIFY(all.model.historyMemoryInUse() <= HistoryPyramid::mostBytes(64, channels));
    }

    void channelsAreExchangedInRowsAndBlocks()
    {
        // So little memory that more channels leave room for fewer blocks of each level.
        Acquisition all(2, 100, HistoryPyramid::mostBytes(300, 2));
        ModelWatch watch(&all.model);
        all.append(60000, true);
        for (const QVector<int> &former :
             {QVector<int>{2, 0, 1, 0}, {1, 3}, {2, 2, 2}, {1, 0}, {0}, {1, 0, 0}}) {
            all.exchange(former);
            QCOMPARE(historyFault(all), QString());
            QCOMPARE(rowsFault(all), QString());
            QVERIFY(all.model.historyMemoryInUse() <= all.model.historyMemory());
            all.append(30000, true);
            QCOMPARE(historyFault(all), QString());
            QCOMPARE(rowsFault(all), QString());
        }
        QCOMPARE(watch.complaints(), QString());
    }

    void takenReadingsComeBackBeforeLaterOnes_data()
    {
        columns<int, int, int>("before", "since", "blocks");
        QTest::addColumn<double>("span");
        QTest::newRow("days, and a few rows since") << 60000 << 30 << 2000 << 1e9;
        QTest::newRow("days, and more than fits beside") << 60000 << 90 << 2000 << 1e9;
        QTest::newRow("days, and blocks since") << 60000 << 20000 << 2000 << 1e9;
        QTest::newRow("blocks since, of which the shortest are gone")
            << 60000 << 60000 << 300 << 1e9;
        QTest::newRow("more since than is remembered") << 60000 << 20000 << 2000 << 50.0;
        QTest::newRow("no blocks before") << 60 << 20000 << 2000 << 1e9;
        QTest::newRow("nothing since") << 60000 << 0 << 2000 << 1e9;
        QTest::newRow("nothing before") << 0 << 20000 << 2000 << 1e9;
    }
    void takenReadingsComeBackBeforeLaterOnes()
    {
        QFETCH(int, blocks);
        QFETCH(double, span);
        Acquisition some(2, 100, HistoryPyramid::mostBytes(blocks, 2));
        some.model.setHistorySpan(span);
        ModelWatch watch(&some.model);
        some.append(cell<int>("before"), true);
        const auto taken = some.take();
        QCOMPARE(some.model.rowCount(), 1);
        QVERIFY(std::isnan(some.history().oldest()));
        some.append(cell<int>("since"), true);
        some.putBefore(taken);
        QCOMPARE(some.model.rowCount(), 101);
        const bool isAllKept = blocks == 2000 && span == 1e9;
        QVERIFY(!isAllKept || some.history().oldest() == some.times.front());
        for (int further : {0, 70, 30000}) {
            some.append(further, true);
            QCOMPARE(historyFault(some), QString());
            QCOMPARE(rowsFault(some), QString());
            QCOMPARE(coverFault(some, 0.0, some.times.back(), 500), QString());
            QVERIFY(some.model.historyMemoryInUse() <= some.model.historyMemory());
        }
        some.model.putReadingsBefore(taken); // is empty now
        QCOMPARE(rowsFault(some), QString());
        QCOMPARE(watch.complaints(), QString());
    }

    void takenReadingsMustBelong()
    {
        Acquisition some(2, 100, 1'000'000);
        some.append(5000, false);
        const auto taken = some.model.takeReadings();
        const double early[] = {1.0, 0.0, 0.0}; // the clock was set back
        some.model.appendRow(early[0], early + 1);
        some.model.putReadingsBefore(taken);
        const std::vector<double> values(200, 0.0);
        some.model.appendRows(some.times.data(), values.data(), 100);
        QCOMPARE(some.history().oldest(), 1.0);
        some.model.setChannelCount(3);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Readings of 2 channels do not"));
        some.model.putReadingsBefore(taken);
        some.model.putReadingsBefore(nullptr);
        QCOMPARE(some.model.rowCount(), 1);
    }

    void readingsAreReplaced()
    {
        Acquisition all(2, 4000, 1'000'000);
        all.append(5000, false);
        const double before = all.history().oldest();
        const auto most = [&all] {
            const std::unique_ptr<QwtSeriesData<QPointF>> series(all.model.seriesData(2, 1, 4000));
            return series->boundingRect().bottom();
        };
        QVERIFY(most() > 1000.0);
        QSignalSpy changes(&all.model, &QAbstractItemModel::dataChanged);
        all.model.setReadings(2, QVector<double>(4000, -7.0));
        QCOMPARE(most(), -7.0); // ranges of blocks that were found before are not used again
        QCOMPARE(changes.count(), 1);
        QCOMPARE(all.model.doubleData(4000, 2), -7.0);
        QVERIFY(all.model.doubleData(4000, 1) != -7.0);
        QCOMPARE(all.history().oldest(), before);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("3 readings of column 2 do not"));
        all.model.setReadings(2, QVector<double>(3, 1.0));
        QCOMPARE(all.model.doubleData(1, 2), -7.0);
    }

    void memoryIsWhatIsStated()
    {
        // Seven days of 16 channels at 1 kHz: what the last level reaches, and what it takes.
        const int blocks =
            HistoryPyramid::blocksFor(RVXMultichannelDeviceModel::usualHistoryMemory, 16);
        QVERIFY(HistoryPyramid::mostBytes(blocks, 16)
                <= RVXMultichannelDeviceModel::usualHistoryMemory);
        QCOMPARE(HistoryPyramid::mostBytes(1, 16), qint64(8 * 32 * 17));
        const double rows = blocks * HistoryPyramid::baseRows
            * std::pow(HistoryPyramid::growth, HistoryPyramid::levels - 1);
        QVERIFY(rows / 1000.0 > 7 * 86400.0);
        const qint64 rings = qint64(100000) * 17 * 8;
        QVERIFY(RVXMultichannelDeviceModel::usualHistoryMemory + rings <= 300'000'000);

        Acquisition all(4, 100, HistoryPyramid::mostBytes(200, 4));
        for (int i = 0; i < 100; ++i)
            all.append(1000, false);
        // Level 0 and 1 are full; the others have grown to what they hold.
        QVERIFY(all.model.historyMemoryInUse() >= qint64(2 * 200 * 5) * 32);
        QVERIFY(all.model.historyMemoryInUse() <= all.model.historyMemory());
    }

    void outagesLieBetweenBlocks()
    {
        Acquisition all(1, 20, 1'000'000);
        all.append(5000, false);
        const double begin = all.times.back(), before = begin + 1.071;
        std::vector<double> zeros(5000, 0.0);
        std::vector<double> later(zeros);
        for (int i = 0; i < 5000; ++i) // the outage is among rows that come together
            later[size_t(i)] = (begin + (i < 107 ? 0.0 : 3600.0) + 0.01 * (i + 1));
        all.model.appendRows(later.data(), zeros.data(), 5000);
        for (int level = 0; level < 4; ++level) {
            for (qint64 i = 0; i < all.history().endBlock(level); ++i) {
                const RVXPlotHistory::Interval when = all.history().interval(level, i);
                QVERIFY(when.last <= before || when.first > before);
                QVERIFY(when.longestStep < 1.0F);
            }
        }
    }

    void whatForgets_data()
    {
        columns<QString>("what");
        for (const char *what : {"clear", "channels", "time of 0", "time steps back", "span"})
            QTest::newRow(what) << what;
    }
    void whatForgets()
    {
        QFETCH(QString, what);
        Acquisition all(1, 100, 1'000'000);
        all.append(10000, false);
        QVERIFY(all.history().oldest() < 2.0);
        RVXMultichannelDeviceModel &model = all.model;
        const double reading = 5.0;
        if (what == "clear")
            model.Clear();
        else if (what == "channels")
            model.setChannelCount(2);
        else if (what == "span")
            model.setHistorySpan(10.0);
        else if (what == "time of 0")
            model.appendRow(0.0, &reading);
        if (what != "time steps back") {
            QVERIFY(std::isnan(all.history().oldest()));
            return;
        }
        // The rows of the acquisition before leave the model first.
        for (int i = 0; i < 300; ++i)
            model.appendRow(10.0 + i, &reading);
        QCOMPARE(all.history().oldest(), 10.0);
    }

    void spanIsKept()
    {
        Acquisition all(1, 100, 100'000'000);
        all.model.setHistorySpan(20.0);
        all.append(50000, false);
        const double oldest = all.history().oldest();
        QVERIFY(oldest <= all.times.back() - 20.0);
        QVERIFY(oldest
                >= all.times.back() - 60.0); // blocks of higher levels stay until the next one
    }

    void proxiesShowIt()
    {
        const Units::nA nA;
        Acquisition all(1, 100, 1'000'000);
        all.append(1000, false);
        all.model.SetUnits(&nA);
        RVXAveragingProxyModel averaging;
        RVXZeroingProxyModel top;
        averaging.setSourceModel(&all.model);
        top.setSourceModel(&averaging);
        RVXPlotHistory::Block block;
        const auto read = [&] {
            const RVXPlotHistory *const history = RVXPlotHistory::of(&top);
            return history && history->read(0, 1, 3, 1, &block);
        };
        QVERIFY(read());
        const RVXPlotHistory::Block stored = all.literalBlock(qint64(3) * 64, 64, 1);
        QCOMPARE(block.greatest, stored.greatest * 1e9);
        top.zeroNow();
        const double zero = all.readings.back() * 1e9;
        QVERIFY(read());
        QCOMPARE(block.least, stored.least * 1e9 - zero);
        QVERIFY(std::abs(block.mean - (stored.mean * 1e9 - zero)) < 1e-3);
        averaging.setAveraging(2);
        QVERIFY(!RVXPlotHistory::of(&top)); // blocks of readings are no averages
        averaging.setAveraging(1);
        all.model.setHistorySpan(0.0);
        QVERIFY(!RVXPlotHistory::of(&top));
    }
};

CORVALE_QT_TEST_MAIN(tst_PlotHistory)
#include "tst_PlotHistory.moc"
