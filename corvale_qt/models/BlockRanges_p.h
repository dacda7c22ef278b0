// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/SampleBounds_p.h"

#include <QVector>

namespace Corvale_Qt {

struct ColumnSpans;

/*! The ranges of blocks of numbers in a ring, and of blocks of such blocks, each found when it is first asked for: a
    chart that is drawn again, or that needs the range of what it then draws, need not read all of its samples again.

    Numbers count from the first that the ring ever took, so that a block keeps its name while the ring rolls on.
    Who changes a number that is there already, or takes back the newest, must call forget(). */
class BlockRanges
{
public:
    //! Of numbers \a first to \a last - 1 of spans that have this as their blocks.
    ValueRange range(const ColumnSpans &spans, int first, int last);
    void forget();

private:
    struct Block
    {
        qint64 name = -1;
        ValueRange range{};
    };

    //! Neighbouring numbers, counted as the ring counts.
    struct Numbers
    {
        qint64 begin;
        qint64 end;
    };

    static constexpr int levels = 2;

    ValueRange rangeAt(int level, const ColumnSpans &spans, const Numbers &numbers);
    const ValueRange &block(int level, const ColumnSpans &spans, qint64 name);

    QVector<Block> m_blocks[levels];
};

} // namespace Corvale_Qt
