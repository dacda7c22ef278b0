// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/ChannelRings_p.h"

namespace Corvale_Qt {

ChannelRings::ChannelRings(int channels, int capacity)
    : m_capacity(capacity)
    , m_times(0)
    , m_channels(std::size_t(channels))
{
}

void ChannelRings::reset(int channels)
{
    m_ringCapacity = 0;
    m_times.clear();
    m_times.setCapacity(0);
    m_channels = std::vector<Channel>(std::size_t(channels));
}

void ChannelRings::setCapacity(int rows)
{
    dropOldest(std::max(this->rows() - rows, 0));
    m_capacity = rows;
    if (m_ringCapacity > rows)
        setRingCapacity(rows);
}

void ChannelRings::append(const double *times, const double *values, int rows)
{
    makeRoomFor(rows);
    const std::size_t stride = m_channels.size();
    // The rows of a chunk stay in the cache while the channels read them one after the other.
    constexpr int chunk = 64;
    for (int first = 0; first < rows; first += chunk) {
        const int end = std::min(first + chunk, rows);
        for (std::size_t c = 0; c < stride; ++c) {
            SampleRing &ring = m_channels[c].ring;
            for (int row = first; row < end; ++row)
                ring.push_back(values[std::size_t(row) * stride + c]);
        }
    }
    for (int row = 0; row < rows; ++row)
        m_times.push_back(times[row]);
    m_taken += rows;
}

void ChannelRings::dropOldest(int rows)
{
    if (rows < 1)
        return;
    m_times.dropOldest(rows);
    for (Channel &channel : m_channels)
        channel.ring.erase_begin(SampleRing::size_type(rows));
}

bool ChannelRings::spans(int channel, int firstRow, int count, ColumnSpans &spans) const
{
    const Channel &own = m_channels[std::size_t(channel)];
    if (!ringSpans(own.ring, firstRow, count, spans))
        return false;
    spans.blocks = &own.ranges;
    spans.number = m_taken - rows() + firstRow;
    return true;
}

//! Enlarges the rings by doubling, so that not every new row moves all others.
void ChannelRings::makeRoomFor(int rows)
{
    constexpr int smallest = 1024;
    const int needed = this->rows() + rows;
    if (needed <= m_ringCapacity)
        return;
    const qint64 doubled = std::max(smallest, needed) * qint64(2);
    setRingCapacity(int(std::min<qint64>(doubled, m_capacity)));
}

void ChannelRings::setRingCapacity(int rows)
{
    m_ringCapacity = rows;
    m_times.setCapacity(rows);
    for (Channel &channel : m_channels)
        channel.ring.set_capacity(SampleRing::capacity_type(rows));
}

} // namespace Corvale_Qt
