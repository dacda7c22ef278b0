// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/PlotColumns_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

//! How many numbers a block holds.
constexpr int widths[] = {32, 1024};
//! From how many blocks on they are worth their while: a few numbers are read faster than blocks are put together.
constexpr int fewest[] = {16, 1};

} // namespace

ValueRange BlockRanges::range(const ColumnSpans &spans, int first, int last)
{
    if (last - first < widths[0] * fewest[0])
        return readRange(spans, first, last);
    for (int level = 0; level < levels; ++level) {
        // Room for all that can be asked for at once; more only means that blocks are found again.
        const int room = spans.ringSize / widths[level] + 2;
        if (m_blocks[level].size() != room)
            m_blocks[level] = QVector<Block>(room);
    }
    return rangeAt(levels - 1, spans, {spans.number + first, spans.number + last});
}

void BlockRanges::forget()
{
    for (QVector<Block> &blocks : m_blocks)
        blocks.clear();
}

//! With the blocks of \a level where whole ones are among the numbers, and smaller ones for what is left.
ValueRange BlockRanges::rangeAt(int level, const ColumnSpans &spans, const Numbers &numbers)
{
    if (level < 0)
        return readRange(spans, int(numbers.begin - spans.number), int(numbers.end - spans.number));
    const int width = widths[level];
    const qint64 first = (numbers.begin + width - 1) / width;
    const qint64 end = numbers.end / width;
    if (end - first < fewest[level])
        return rangeAt(level - 1, spans, numbers);

    ValueRange range = rangeAt(level - 1, spans, {numbers.begin, first * width});
    for (qint64 name = first; name < end; ++name)
        range.unite(block(level, spans, name));
    range.unite(rangeAt(level - 1, spans, {end * width, numbers.end}));
    return range;
}

const ValueRange &BlockRanges::block(int level, const ColumnSpans &spans, qint64 name)
{
    Block &block = m_blocks[level][int(name % m_blocks[level].size())];
    if (block.name != name) {
        const int width = widths[level];
        block = {name, rangeAt(level - 1, spans, {name * width, (name + 1) * width})};
    }
    return block.range;
}

} // namespace Corvale_Qt
