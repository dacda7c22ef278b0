// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <boost/circular_buffer.hpp>

#include <algorithm>
#include <vector>

namespace Monitor {

/*! The latest readings, stored column by column: times, and one column for each channel. Memory grows with the number
    of readings up to the capacity; then the newest reading replaces the oldest. */
class ReadingRing
{
public:
    using Column = boost::circular_buffer<double>;

    explicit ReadingRing(int capacity)
        : m_capacity(std::size_t(capacity))
    {
    }

    //! Removes all readings and sets the number of channels.
    void reset(int channels)
    {
        m_times = Column();
        m_channels.assign(std::size_t(channels), Column());
    }
    //! Appends a reading; \a values points to one value per channel.
    void append(double time, const double *values)
    {
        if (m_times.full() && m_times.size() < m_capacity)
            grow();
        m_times.push_back(time);
        for (Column &channel : m_channels)
            channel.push_back(*values++);
    }
    void dropOldest(int count)
    {
        m_times.erase_begin(std::size_t(count));
        for (Column &channel : m_channels)
            channel.erase_begin(std::size_t(count));
    }
    //! Copies the values of reading \a i, counted from the oldest, to \a values, which has room for all channels.
    void copyValues(int i, double *values) const
    {
        for (const Column &channel : m_channels)
            *values++ = channel[std::size_t(i)];
    }

    int size() const { return int(m_times.size()); }
    int capacity() const { return int(m_capacity); }
    int channels() const { return int(m_channels.size()); }
    //! Returns the time of reading \a i, counted from the oldest.
    double time(int i) const { return m_times[std::size_t(i)]; }
    double value(int i, int channel) const
    {
        return m_channels[std::size_t(channel)][std::size_t(i)];
    }

private:
    void grow()
    {
        constexpr std::size_t smallest = 1024;
        const std::size_t room = std::min(m_capacity, std::max(smallest, 2 * m_times.capacity()));
        m_times.set_capacity(room);
        for (Column &channel : m_channels)
            channel.set_capacity(room);
    }

    std::size_t m_capacity;
    Column m_times;
    std::vector<Column> m_channels;
};

} // namespace Monitor
