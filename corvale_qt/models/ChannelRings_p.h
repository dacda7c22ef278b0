// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/SampleRing_p.h"

#include <vector>

namespace Corvale_Qt {

/*! The newest rows of several channels, stored column by column: one ring of times and one ring for each channel. Memory
    grows with the rows up to the capacity. Rows and channels are counted from 0, the oldest row first. */
class ChannelRings
{
public:
    ChannelRings(int channels, int capacity);

    //! Removes all rows and sets the number of channels.
    void reset(int channels);
    //! Sets how many rows there may be, at least 1; the newest stay.
    void setCapacity(int rows);
    int capacity() const { return m_capacity; }
    int rows() const { return int(m_times.times().size()); }
    int channels() const { return int(m_channels.size()); }
    //! Returns how many rows were ever appended.
    qint64 taken() const { return m_taken; }

    //! Appends rows, for which there must be room. Row r of channel c is values[r * channels() + c].
    void append(const double *times, const double *values, int rows);
    void dropOldest(int rows);

    const TimeRing &times() const { return m_times; }
    double time(int row) const { return m_times.times()[std::size_t(row)]; }
    double value(int row, int channel) const { return ring(channel)[std::size_t(row)]; }
    const SampleRing &ring(int channel) const { return m_channels[std::size_t(channel)].ring; }
    //! Finds rows of a channel in memory, with their cached ranges; see ringSpans().
    bool spans(int channel, int firstRow, int count, ColumnSpans &spans) const;

private:
    struct Channel
    {
        SampleRing ring;
        mutable BlockRanges ranges;
    };

    void makeRoomFor(int rows);
    void setRingCapacity(int rows);

    int m_capacity;
    int m_ringCapacity = 0; // grows up to m_capacity
    qint64 m_taken = 0;
    TimeRing m_times;
    std::vector<Channel> m_channels;
};

} // namespace Corvale_Qt
