// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

// How many numbers a block of each level holds.
constexpr int widths[] = {32, 1024};
// Fewer blocks of a level than this are read directly: reading a few numbers is faster than combining blocks.
constexpr int fewest[] = {16, 1};

} // namespace

ValueRange BlockRanges::range(const RingSpans &spans, int first, int last)
{
    if (last - first < widths[0] * fewest[0])
        return readRange(spans, first, last);
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

void BlockRanges::Extremes::unite(const ValueRange &other, qint64 from)
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

ValueRange BlockRanges::rangeAt(int level, const RingSpans &spans, const Numbers &numbers)
{
    if (level < 0)
        return readRange(spans, int(numbers.begin - spans.number), int(numbers.end - spans.number));
    const int width = widths[level];
    const qint64 first = (numbers.begin + width - 1) / width;
    const qint64 end = numbers.end / width;
    if (end - first < fewest[level])
        return rangeAt(level - 1, spans, numbers);

    ValueRange range = rangeAt(level - 1, spans, {numbers.begin, first * width});
    for (qint64 index = first; index < end; ++index)
        range.unite(block(level, spans, index));
    range.unite(rangeAt(level - 1, spans, {end * width, numbers.end}));
    return range;
}

const ValueRange &BlockRanges::block(int level, const RingSpans &spans, qint64 index)
{
    Block &block = m_blocks[level][int(index % m_blocks[level].size())];
    if (block.index != index) {
        const int width = widths[level];
        block = {index, rangeAt(level - 1, spans, {index * width, (index + 1) * width})};
    }
    return block.range;
}

} // namespace Corvale_Qt
