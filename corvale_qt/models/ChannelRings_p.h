// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/HistoryPyramid_p.h"
#include "corvale_qt/models/SampleRing_p.h"

#include <memory>
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
    //! Returns all rows and the history, and leaves none behind.
    ChannelRings take();
    /*! Puts the rows and the history of rings with as many channels before those here, and returns how many rows were put
        there. Where there is no room for all, the oldest rows go into the history, as if all had been appended in turn. */
    int putBefore(ChannelRings &&former);
    //! A channel that begins without readings.
    static constexpr int noChannel = -1;
    /*! Replaces the channels and keeps the rows, and the history. Channel c goes on with the readings of channel \a former[c], or
        with NaN for noChannel. */
    void exchange(const std::vector<int> &former);
    //! Replaces the oldest \a rows readings of a channel.
    void replace(int channel, const double *readings, int rows);
    //! Sets how many rows there may be, at least 1; the newest stay.
    void setCapacity(int rows);
    int capacity() const { return m_capacity; }
    int rows() const { return int(m_times.times().size()); }
    int channels() const { return int(m_channels.size()); }
    //! Returns how many rows were ever appended.
    qint64 taken() const { return m_taken; }

    //! Appends rows, for which there must be room. Row r of channel c is values[r * channels() + c].
    void append(const double *times, const double *values, int rows);
    //! Drops rows; they go into the history, if there is one.
    void dropOldest(int rows);

    /*! Keeps rows that are dropped from now on in a history of \a span in \a bytes of memory, and forgets the one there was. A
        span of 0 or less ends it. */
    void setHistory(double span, qint64 bytes);
    //! Returns the history; null if there is none.
    const HistoryPyramid *history() const { return m_history.get(); }

    const TimeRing &times() const { return m_times; }
    double time(int row) const { return m_times.times()[std::size_t(row)]; }
    double value(int row, int channel) const { return ring(channel)[std::size_t(row)]; }
    const SampleRing &ring(int channel) const { return m_channels[std::size_t(channel)].ring; }
    //! Finds rows of a channel in memory, with their cached ranges; see ringSpans().
    bool spans(int channel, int firstRow, int count, RingSpans &spans) const;
    //! Finds the times of rows in memory.
    bool timeSpans(int firstRow, int count, RingSpans &spans) const;

private:
    struct Channel
    {
        SampleRing ring;
        mutable BlockRanges ranges;
    };

    void appendLater(const ChannelRings &later);
    void makeRoomFor(int rows);
    void makeHistory();
    void keepOldest(int rows);
    void setRingCapacity(int rows);

    int m_capacity;
    int m_ringCapacity = 0; // grows up to m_capacity
    qint64 m_taken = 0;
    TimeRing m_times;
    std::vector<Channel> m_channels;
    double m_historySpan = 0.0;
    qint64 m_historyBytes = 0;
    std::unique_ptr<HistoryPyramid> m_history;
    std::vector<const double *>
        m_dropped; // where the rows of each channel lie that go into the history
};

} // namespace Corvale_Qt
