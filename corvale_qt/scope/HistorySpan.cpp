// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockOfReadings_p.h"
#include "corvale_qt/models/HistoryCover_p.h"
#include "corvale_qt/scope/HistorySpan_p.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace Corvale_Qt {

namespace {

using Interval = RVXPlotHistory::Interval;

constexpr qint64 lastRow = std::numeric_limits<qint64>::max();

//! Adds up blocks of one channel.
class Collector
{
public:
    Collector(const RVXPlotHistory &history, int column)
        : m_history(history)
        , m_column(column)
    {
        m_span.readings = emptyBlock();
    }

    /*! Adds the blocks that \a isWanted among those that cover a stretch; their rows are from \a fromRow to before \a toRow. */
    template<typename Condition>
    void add(double left, double right, qint64 fromRow, qint64 toRow, Condition isWanted)
    {
        for (const HistoryPiece &piece : coverByHistory(m_history, left, right, most)) {
            const auto interval = [&](qint64 block) {
                return m_history.interval(piece.level, block);
            };
            const auto isIn = [&](const Interval &each) {
                return each.firstRow >= fromRow && each.firstRow + each.rows <= toRow
                    && isWanted(each);
            };
            qint64 begin = piece.first;
            while (begin < piece.end && !isIn(interval(begin)))
                ++begin;
            qint64 end = piece.end;
            while (end > begin && !isIn(interval(end - 1)))
                --end;
            if (begin < end)
                addBlocks(piece.level, begin, end);
        }
    }

    const HistorySpan &span() const { return m_span; }
    qint64 firstRow() const { return m_firstRow; }
    qint64 endRow() const { return m_endRow; }

private:
    //! How many blocks are read at most for a stretch; a long one is in longer blocks.
    static constexpr qint64 most = 4096;

    void addBlocks(int level, qint64 begin, qint64 end)
    {
        std::vector<RVXPlotHistory::Block> blocks(size_t(end - begin));
        if (!m_history.read(level, m_column, begin, int(blocks.size()), blocks.data()))
            return;
        for (const RVXPlotHistory::Block &block : blocks)
            addBlock(block, m_span.readings);
        const Interval first = m_history.interval(level, begin);
        const Interval last = m_history.interval(level, end - 1);
        const bool isFirst = m_span.rows == 0;
        m_span.first = isFirst ? first.first : std::min(m_span.first, first.first);
        m_span.last = isFirst ? last.last : std::max(m_span.last, last.last);
        m_firstRow = std::min(m_firstRow, first.firstRow);
        m_endRow = std::max(m_endRow, last.firstRow + last.rows);
        for (qint64 block = begin; block < end; ++block)
            m_span.rows += m_history.interval(level, block).rows;
    }

    const RVXPlotHistory &m_history;
    int m_column;
    HistorySpan m_span;
    qint64 m_firstRow = lastRow;
    qint64 m_endRow = 0;
};

} // namespace

HistoryPlace HistoryPlace::at(const RVXPlotHistory &history, double x)
{
    HistoryPlace place;
    for (int level = 0; level < history.levels(); ++level) {
        const qint64 begin = history.firstBlock(level);
        const qint64 end = history.endBlock(level);
        if (begin == end)
            continue;
        qint64 first = begin;
        for (qint64 count = end - begin; count > 0;) { // the first block that ends at x or later
            const qint64 half = count / 2;
            const bool isBefore = history.interval(level, first + half).last < x;
            first = isBefore ? first + half + 1 : first;
            count = isBefore ? count - half - 1 : half;
        }
        place = {level, std::min(first, end - 1)};
        if (history.interval(level, begin).first <= x)
            break; // no longer block is needed
    }
    return place;
}

double HistoryPlace::momentBefore(const RVXPlotHistory &history, double x)
{
    const HistoryPlace place = at(history, x);
    if (!place.isValid())
        return std::nan("");
    const Interval block = history.interval(place.level, place.block);
    if (block.last < x) // x is behind the newest block
        return block.last;
    const double before = std::nextafter(block.first, -std::numeric_limits<double>::infinity());
    const HistoryPlace found = at(history, before);
    const Interval other = history.interval(found.level, found.block);
    if (other.first <= before)
        return std::min(before, other.last);
    // Nothing was read right before the block, so that the one after that moment was found.
    return found.block > history.firstBlock(found.level)
        ? history.interval(found.level, found.block - 1).last
        : std::nan("");
}

double HistoryPlace::momentAfter(const RVXPlotHistory &history, double x)
{
    const HistoryPlace place = at(history, x);
    if (!place.isValid())
        return std::nan("");
    const double last = history.interval(place.level, place.block).last;
    const double after = std::nextafter(last, std::numeric_limits<double>::infinity());
    const HistoryPlace found = at(history, after);
    const Interval other = history.interval(found.level, found.block);
    return other.last < after ? std::nan("") : std::max(after, other.first);
}

HistorySpan
HistorySpan::between(const RVXPlotHistory &history, int column, double left, double right)
{
    Collector collector(history, column);
    collector.add(left, right, 0, lastRow, [=](const Interval &each) {
        return each.first >= left && each.last <= right;
    });
    const auto overlaps = [=](const Interval &each) {
        return each.last >= left && each.first <= right;
    };
    if (collector.span().rows == 0) {
        collector.add(left, right, 0, lastRow, overlaps);
        return collector.span();
    }
    const HistorySpan inside = collector.span();
    const qint64 firstRow = collector.firstRow();
    const qint64 endRow = collector.endRow();
    collector.add(left, inside.first, 0, firstRow, overlaps);
    collector.add(inside.last, right, endRow, lastRow, overlaps);
    return collector.span();
}

} // namespace Corvale_Qt
