// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXPlotHistory.h"

#include <boost/circular_buffer.hpp>

#include <array>
#include <vector>

namespace Corvale_Qt {

/*! Rows of several channels that nobody keeps any more, as blocks at growing lengths: a block of level 0 holds 64 rows, one
    of each further level four blocks of the level below. Each level keeps the same number of blocks, so a level reaches four
    times as far back as the one below, and the memory is bounded whatever comes:

        bytes = levels * blocks for each level * (channels + 1) * 32

    A block is shorter where time jumps by more than a block of its level usually takes, so that an outage lies between
    blocks. Times that step back by up to a second count as the newest time before; a larger step begins a new acquisition,
    and what was before it is forgotten. Levels, blocks and channels are counted from 0. */
class HistoryPyramid
{
public:
    static constexpr int baseRows = 64;
    static constexpr int growth = 4;
    static constexpr int levels = 8;
    static constexpr double largestStepBack = 1.0; //!< within an acquisition, in units of x

    using Interval = RVXPlotHistory::Interval;
    using Block = RVXPlotHistory::Block;

    //! Consecutive rows as they lie in memory: a piece of times and, for each channel, the readings that belong to it.
    struct Rows
    {
        const double *times;
        const double *const *readings; //!< for each channel
        int count;
    };

    //! Returns how many blocks each level keeps so that all of them fit into \a bytes; at least 64.
    static int blocksFor(qint64 bytes, int channels);
    //! Returns the most memory that a pyramid takes.
    static qint64 mostBytes(int blocksOfLevel, int channels);

    //! Keeps \a blocksOfLevel blocks, at least 64, for each level, and none that ended more than \a span before the newest row.
    HistoryPyramid(int channels, int blocksOfLevel, double span);

    //! Adds the rows that follow those before.
    void append(const Rows &rows);
    /*! Adds the blocks of rows that follow those before and that another pyramid of as many channels took. Rows before a
        step back in time are forgotten, as by appending rows. */
    void append(const HistoryPyramid &later);
    void clear();
    /*! Replaces the channels. Channel c goes on with the blocks of channel \a former[c]; those of a negative one have no
        readings. Where \a blocksOfLevel is less than before, the oldest blocks are dropped. */
    void exchange(const std::vector<int> &former, int blocksOfLevel);

    int channels() const { return m_channels; }
    //! Returns how many rows were appended since the last clear().
    qint64 rows() const { return m_rows; }
    qint64 firstBlock(int level) const
    {
        return endBlock(level) - qint64(at(level).intervals.size());
    }
    qint64 endBlock(int level) const { return at(level).taken; }
    const Interval &interval(int level, qint64 block) const;
    const Block &block(int level, int channel, qint64 block) const;
    //! Returns the memory that the blocks have allocated.
    qint64 bytes() const;

private:
    struct Level
    {
        boost::circular_buffer<Interval> intervals;
        std::vector<boost::circular_buffer<Block>> blocks; // of each channel
        qint64 taken = 0; // of all blocks that the level ever had
        int pending = 0; // newest blocks that are in no block of the next level yet
    };
    //! Rows that belong to the same block of level 0.
    struct Stretch
    {
        int count = 1;
        double last = 0.0; //!< time of the last row
        double longestStep = 0.0;
    };

    const Level &at(int level) const { return m_levels[size_t(level)]; }
    Level &at(int level) { return m_levels[size_t(level)]; }
    double usualLength() const;
    void begin(double time);
    Stretch stretch(const double *times, int most, double start) const;
    void extend(const Rows &rows, int first, const Stretch &stretch);
    void closeBase();
    void closeBefore(double gap);
    void closeAll();
    void appendBlocks(int level, const HistoryPyramid &later, qint64 rowsBefore, double newest);
    void combine(int level);
    void push(int level, const Interval &interval);
    void dropOld(Level &level) const;
    static void dropOldest(Level &level, size_t blocks);
    void enlarge(Level &level) const;

    int m_channels;
    int m_blocks;
    double m_span;
    qint64 m_rows = 0;
    qint64 m_firstRow = 0; // of the present acquisition
    double m_first = 0.0; // its time
    double m_newest = 0.0; // time of the last row
    bool m_isOpen = false; // the newest block of level 0 may still grow
    std::array<Level, levels> m_levels;
};

} // namespace Corvale_Qt
