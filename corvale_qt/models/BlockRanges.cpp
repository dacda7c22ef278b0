// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockOfReadings_p.h"
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/numerics/NumberPair_p.h"
#include "corvale_qt/numerics/WideRegisters_p.h"

#include <QDebug>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Corvale_Qt {

namespace {

// How many numbers a block of each level holds.
constexpr int widths[] = {32, 1024};
// Fewer blocks of a level than this are read directly: reading a few numbers is faster than combining blocks.
constexpr int fewest[] = {16, 1};

//! Ranges of several pairs side by side, so that the processor does not wait for one comparison to start the next.
template<int pairs>
struct Lanes
{
    NumberPair least[pairs]{};
    NumberPair greatest[pairs]{};
    // Not finite if one of the numbers is not. A sum of enormous numbers may overflow as well, which only costs time.
    NumberPair sum[pairs]{};

    Lanes()
    {
        std::fill_n(least, pairs, NumberPair{kInfinity, kInfinity});
        std::fill_n(greatest, pairs, NumberPair{-kInfinity, -kInfinity});
        std::fill_n(sum, pairs, NumberPair{0.0, 0.0});
    }

    void add(int lane, NumberPair value)
    {
        least[lane] = lesser(value, least[lane]);
        greatest[lane] = greater(value, greatest[lane]);
        sum[lane] += value;
    }

    NumberRange range() const
    {
        NumberPair low = least[0];
        NumberPair high = greatest[0];
        NumberPair total = sum[0];
        for (int lane = 1; lane < pairs; ++lane) {
            low = lesser(low, least[lane]);
            high = greater(high, greatest[lane]);
            total += sum[lane];
        }
        return {std::min(low[0], low[1]),
                std::max(high[0], high[1]),
                std::isfinite(total[0] + total[1])};
    }
};

template<int pairs>
NumberRange rangeByLanes(const double *values, int count)
{
    // One page ahead: the processor prefetches by itself, but not across the end of a page.
    constexpr int prefetched = 512;
    Lanes<pairs> lanes;
    int i = 0;
    for (; i + 2 * pairs <= count; i += 2 * pairs) {
        if (pairs > 1)
            __builtin_prefetch(values + i + prefetched);
        for (int lane = 0; lane < pairs; ++lane)
            lanes.add(lane, pairAt(values + i + std::ptrdiff_t(2) * lane));
    }
    for (; i < count; ++i)
        lanes.add(0, NumberPair{values[i], values[i]});
    return lanes.range();
}

NumberRange rangeOfPiece(const double *values, int count)
{
    // Reading fewer numbers than this takes less time than combining four lanes.
    constexpr int few = 24;
    return count < few ? rangeByLanes<1>(values, count) : rangeByLanes<4>(values, count);
}

NumberRange finiteRangeOneByOne(const RingSpans &spans, int first, int last)
{
    NumberRange range{kInfinity, -kInfinity, false};
    for (int i = first; i < last; ++i) {
        const double value = spans.stored(i);
        if (!std::isfinite(value))
            continue;
        range.least = std::min(range.least, value);
        range.greatest = std::max(range.greatest, value);
    }
    return range;
}

} // namespace

QDebug operator<<(QDebug debug, const NumberRange &range)
{
    const QDebugStateSaver saver(debug);
    return debug.nospace() << "NumberRange(" << range.least << " to " << range.greatest
                           << (range.allFinite ? ")" : ", some not finite)");
}

NumberRange storedRange(const RingSpans &spans, int first, int last)
{
    return spans.blocks ? spans.blocks->range(spans, first, last) : readRange(spans, first, last);
}

NumberRange readRange(const RingSpans &spans, int first, int last)
{
    NumberRange range{kInfinity, -kInfinity, true};
    if (first < spans.size[0])
        range = rangeOfPiece(spans.piece[0] + first, std::min(last, spans.size[0]) - first);
    if (last > spans.size[0]) {
        const int from = std::max(first - spans.size[0], 0);
        range.unite(rangeOfPiece(spans.piece[1] + from, last - spans.size[0] - from));
    }
    return range.allFinite ? range : finiteRangeOneByOne(spans, first, last);
}

NumberRange BlockRanges::range(const RingSpans &spans, int first, int last)
{
    if (last - first < widths[0] * fewest[0])
        return readRange(spans, first, last);
    clearWideRegisters();
    for (int level = 0; level < levels; ++level) {
        // Room for every block of a full ring; two blocks that share a place are found again in turn.
        const int room = spans.ringSize / widths[level] + 2;
        if (m_blocks[level].size() != room)
            m_blocks[level] = QVector<Block>(room);
    }
    const Numbers numbers{spans.number + first, spans.number + last};
    if (follow(numbers))
        m_extremes.unite(rangeAt(levels - 1, spans, {m_followed.end, numbers.end}), m_followed.end);
    else
        m_extremes = extremesAt(spans, numbers);
    m_followed = numbers;
    return m_extremes.range;
}

void BlockRanges::forget()
{
    for (QVector<Block> &blocks : m_blocks)
        blocks.clear();
    m_followed = {0, 0};
    m_content.renew();
}

void BlockRanges::serve(RingSpans &spans, qint64 number)
{
    spans.blocks = this;
    spans.number = number;
    spans.content = m_content.value();
}

void BlockRanges::Extremes::unite(const NumberRange &other, qint64 from)
{
    // The later one of two equal numbers is known for longer.
    if (other.least <= range.least)
        leastFrom = from;
    if (other.greatest >= range.greatest)
        greatestFrom = from;
    range.unite(other);
}

bool BlockRanges::follow(const Numbers &numbers) const
{
    const bool isMovedOn = m_followed.begin <= numbers.begin && numbers.begin < m_followed.end
        && m_followed.end <= numbers.end;
    // A number that is not finite may be among those that have gone.
    return isMovedOn && m_extremes.range.allFinite && m_extremes.leastFrom >= numbers.begin
        && m_extremes.greatestFrom >= numbers.begin;
}

BlockRanges::Extremes BlockRanges::extremesAt(const RingSpans &spans, const Numbers &numbers)
{
    constexpr int top = levels - 1;
    constexpr int width = widths[top];
    Extremes extremes;
    for (qint64 from = numbers.begin; from < numbers.end;) {
        const qint64 index = from / width;
        const qint64 end = std::min((index + 1) * width, numbers.end);
        const bool isWhole = from == index * width && end == (index + 1) * width;
        extremes.unite(isWhole ? block(top, spans, index) : rangeAt(top - 1, spans, {from, end}),
                       from);
        from = end;
    }
    return extremes;
}

NumberRange BlockRanges::rangeAt(int level, const RingSpans &spans, const Numbers &numbers)
{
    if (level < 0)
        return readRange(spans, int(numbers.begin - spans.number), int(numbers.end - spans.number));
    const int width = widths[level];
    const qint64 first = (numbers.begin + width - 1) / width;
    const qint64 end = numbers.end / width;
    if (end - first < fewest[level])
        return rangeAt(level - 1, spans, numbers);

    NumberRange range = rangeAt(level - 1, spans, {numbers.begin, first * width});
    for (qint64 index = first; index < end; ++index)
        range.unite(block(level, spans, index));
    range.unite(rangeAt(level - 1, spans, {end * width, numbers.end}));
    return range;
}

const NumberRange &BlockRanges::block(int level, const RingSpans &spans, qint64 index)
{
    Block &block = m_blocks[level][int(index % m_blocks[level].size())];
    if (block.index != index) {
        const int width = widths[level];
        block = {index, rangeAt(level - 1, spans, {index * width, (index + 1) * width})};
    }
    return block.range;
}

} // namespace Corvale_Qt
