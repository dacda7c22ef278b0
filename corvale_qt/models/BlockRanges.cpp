// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/PlotColumns_p.h"

#include <algorithm>

namespace Corvale_Qt {

ValueRange BlockRanges::range(const ColumnSpans &spans, int first, int last)
{
    const qint64 begin = spans.number + first;
    const qint64 end = spans.number + last;
    const qint64 firstBlock = (begin + numbersInBlock - 1) / numbersInBlock;
    const qint64 endBlock = end / numbersInBlock;
    // A few numbers are read faster than their blocks are put together.
    constexpr int few = 16;
    if (endBlock - firstBlock < few)
        return readRange(spans, first, last);

    // Room for all that can be asked for at once; more only means that blocks are found again.
    const int room = spans.ringSize / numbersInBlock + 2;
    if (m_blocks.size() != room)
        m_blocks = QVector<Block>(room);
    ValueRange range = readRange(spans, first, int(firstBlock * numbersInBlock - spans.number));
    for (qint64 name = firstBlock; name < endBlock; ++name)
        range.unite(block(spans, name));
    range.unite(readRange(spans, int(endBlock * numbersInBlock - spans.number), last));
    return range;
}

const ValueRange &BlockRanges::block(const ColumnSpans &spans, qint64 name)
{
    Block &block = m_blocks[int(name % m_blocks.size())];
    if (block.name != name) {
        const int first = int(name * numbersInBlock - spans.number);
        block = {name, readRange(spans, first, first + numbersInBlock)};
    }
    return block.range;
}

} // namespace Corvale_Qt
