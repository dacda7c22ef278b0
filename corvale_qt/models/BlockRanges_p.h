// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/BlockOfReadings_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"

#include <QVector>

#include <algorithm>
#include <array>

class QDebug;

namespace Corvale_Qt {

//! The smallest and the largest of the finite numbers among some numbers, and whether all of them are finite.
struct NumberRange
{
    double least;
    double greatest;
    bool allFinite;

    //! Extends the range by another one.
    void unite(const NumberRange &other)
    {
        least = std::min(least, other.least);
        greatest = std::max(greatest, other.greatest);
        allFinite = allFinite && other.allFinite;
    }
};

QDebug operator<<(QDebug debug, const NumberRange &range);

/*! Returns the range of the stored numbers of rows \a first to \a last - 1, counted from the first row of the spans;
    factor and zero are not applied. If no number is finite, least is greater than greatest. */
NumberRange storedRange(const RingSpans &spans, int first, int last);
//! Returns what storedRange() returns, but always reads every number instead of cached ranges.
NumberRange readRange(const RingSpans &spans, int first, int last);

/*! Keeps the ranges of blocks of numbers in a ring, and of blocks of such blocks. Each is found when it is first needed,
    so that a chart that is drawn again, or that needs the range of what it draws, does not read all samples again.

    Numbers are counted from the first one that the ring ever took, so that a block keeps its index while the ring drops
    its oldest numbers. The owner must call forget() after it has changed a stored number or removed the newest. */
class BlockRanges
{
public:
    /*! Returns the range of rows \a first to \a last - 1 of \a spans, counted from the first row of the spans;
        spans.blocks must be this object. */
    NumberRange range(const RingSpans &spans, int first, int last);
    //! Drops all ranges.
    void forget();
    //! Makes \a spans use these ranges; \a number is the index of their first row among all numbers that the ring ever took.
    void serve(RingSpans &spans, qint64 number);

private:
    struct Block
    {
        qint64 index = -1; //!< of the block among all blocks of its width; -1 while unused
        NumberRange range{};
    };

    //! Consecutive numbers, counted from the first one that the ring ever took; \a end is one past the last.
    struct Numbers
    {
        qint64 begin;
        qint64 end;
    };

    //! The range of numbers, and for each end of it the first number of a stretch that has it.
    struct Extremes
    {
        NumberRange range{kInfinity, -kInfinity, true};
        qint64 leastFrom = 0;
        qint64 greatestFrom = 0;

        void unite(const NumberRange &other, qint64 from);
    };

    static constexpr int levels = 2;

    /*! Returns whether numbers are those of the last call, except for some that have gone at the beginning, none of them an extreme,
        and some that have come at the end. */
    bool follow(const Numbers &numbers) const;
    //! Returns the extremes of numbers, read from blocks of the highest level and of those below it.
    Extremes extremesAt(const RingSpans &spans, const Numbers &numbers);
    //! Returns the range of numbers, read from blocks of a level and of the levels below it.
    NumberRange rangeAt(int level, const RingSpans &spans, const Numbers &numbers);
    const NumberRange &block(int level, const RingSpans &spans, qint64 index);

    std::array<QVector<Block>, levels> m_blocks;
    // What was found in the last call that read blocks; nothing after forget().
    Numbers m_followed{0, 0};
    Extremes m_extremes;
    ContentStamp m_content;
};

} // namespace Corvale_Qt
