// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/ChannelRings_p.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Corvale_Qt {

namespace {

//! Returns where an element of a ring lies; \a count becomes the number of elements from there on that lie in one piece.
const double *contiguous(const SampleRing &ring, int first, int *count)
{
    const auto one = ring.array_one();
    const int inOne = int(one.second);
    if (first >= inOne)
        return ring.array_two().first + (first - inOne);
    *count = std::min(*count, inOne - first);
    return one.first + first;
}

} // namespace

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
    makeHistory();
}

ChannelRings ChannelRings::take()
{
    ChannelRings taken = std::move(*this);
    reset(taken.channels());
    return taken;
}

int ChannelRings::putBefore(ChannelRings &&former)
{
    const int rows = former.rows();
    if (former.m_historySpan != m_historySpan || former.m_historyBytes != m_historyBytes)
        former.setHistory(m_historySpan, m_historyBytes);
    former.setCapacity(m_capacity);
    for (Channel &channel : former.m_channels)
        channel.ranges.forget(); // the rows get other numbers
    former.m_times.renumber();
    former.appendLater(*this);
    former.m_taken = m_taken + rows;
    *this = std::move(former);
    return rows;
}

//! Appends the history and the rows of other rings. No row goes into the history before an older one.
void ChannelRings::appendLater(const ChannelRings &later)
{
    if (m_history && later.m_history && later.m_history->rows() > 0) {
        dropOldest(rows());
        m_history->append(*later.m_history);
    }
    dropOldest(rows() + later.rows() - m_capacity);
    makeRoomFor(later.rows());
    std::vector<double> values(m_channels.size());
    for (int row = 0; row < later.rows(); ++row) {
        for (int channel = 0; channel < channels(); ++channel)
            values[std::size_t(channel)] = later.value(row, channel);
        const double time = later.time(row);
        append(&time, values.data(), 1);
    }
}

void ChannelRings::exchange(const std::vector<int> &former)
{
    std::vector<Channel> exchanged;
    for (const int channel : former) {
        if (channel != noChannel) {
            exchanged.push_back(m_channels[std::size_t(channel)]);
            continue;
        }
        const auto missing = std::numeric_limits<double>::quiet_NaN();
        exchanged.push_back({SampleRing(SampleRing::capacity_type(m_ringCapacity),
                                        SampleRing::size_type(rows()),
                                        missing),
                             BlockRanges()});
    }
    m_channels = std::move(exchanged);
    if (m_history)
        m_history->exchange(former, HistoryPyramid::blocksFor(m_historyBytes, channels()));
}

void ChannelRings::replace(int channel, const double *readings, int rows)
{
    Channel &own = m_channels[std::size_t(channel)];
    std::copy(readings, readings + rows, own.ring.begin());
    own.ranges.forget();
}

void ChannelRings::setHistory(double span, qint64 bytes)
{
    m_historySpan = span;
    m_historyBytes = bytes;
    makeHistory();
}

void ChannelRings::makeHistory()
{
    m_history.reset();
    if (m_historySpan > 0.0)
        m_history =
            std::make_unique<HistoryPyramid>(channels(),
                                             HistoryPyramid::blocksFor(m_historyBytes, channels()),
                                             m_historySpan);
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
    if (m_history)
        keepOldest(rows);
    m_times.dropOldest(rows);
    for (Channel &channel : m_channels)
        channel.ring.erase_begin(SampleRing::size_type(rows));
}

//! Adds the oldest rows to the history, piece by piece as they lie in memory.
void ChannelRings::keepOldest(int rows)
{
    m_dropped.resize(m_channels.size());
    if (rows == 1) {
        std::transform(m_channels.begin(),
                       m_channels.end(),
                       m_dropped.begin(),
                       [](const Channel &channel) {
                           return &channel.ring.front();
                       });
        m_history->append({&m_times.times().front(), m_dropped.data(), 1});
        return;
    }
    for (int row = 0; row < rows;) {
        int count = rows - row;
        const double *const times = contiguous(m_times.times(), row, &count);
        for (std::size_t c = 0; c < m_channels.size(); ++c)
            m_dropped[c] = contiguous(m_channels[c].ring, row, &count);
        m_history->append({times, m_dropped.data(), count});
        row += count;
    }
}

bool ChannelRings::spans(int channel, int firstRow, int count, RingSpans &spans) const
{
    const Channel &own = m_channels[std::size_t(channel)];
    if (!ringSpans(own.ring, firstRow, count, spans))
        return false;
    own.ranges.serve(spans, m_taken - rows() + firstRow);
    return true;
}

bool ChannelRings::timeSpans(int firstRow, int count, RingSpans &spans) const
{
    return m_times.spans(firstRow, count, m_taken, spans);
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
