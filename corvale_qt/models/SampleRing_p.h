// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/LibraryBulkData_p.h"

#include <boost/circular_buffer.hpp>

#include <algorithm>

namespace Corvale_Qt {

using SampleRing = boost::circular_buffer<double>;

/*! Writes transform(element) of elements \a first to first + count - 1 of \a ring to \a out, counted from the oldest.
    Elements that the ring does not have become 0.0, which doubleData() returns for them. */
template<typename Transform>
void readRing(const SampleRing &ring, int first, int count, double *out, Transform transform)
{
    const int size = int(ring.size());
    int i = 0;
    for (; i < count && first + i < 0; ++i)
        out[i] = 0.0;

    // Loops over the two pieces of memory, because the ring's iterator checks for the edge at every step.
    const auto one = ring.array_one();
    const auto two = ring.array_two();
    const int inOne = int(one.second);
    for (; i < count && first + i < inOne; ++i)
        out[i] = transform(one.first[first + i]);
    for (; i < count && first + i < size; ++i)
        out[i] = transform(two.first[first + i - inOne]);
    for (; i < count; ++i)
        out[i] = 0.0;
}

/*! Sets \a spans to the memory of elements \a first to first + count - 1 of \a ring, counted from the oldest. Returns false
    if the ring does not have all of them. */
inline bool ringSpans(const SampleRing &ring, int first, int count, RingSpans &spans)
{
    if (first < 0 || count < 0 || first > int(ring.size()) - count)
        return false;
    spans = RingSpans();
    const auto one = ring.array_one();
    const auto two = ring.array_two();
    const int skip = std::min(first, int(one.second));
    spans.piece[0] = one.first + skip;
    spans.size[0] = std::min(count, int(one.second) - skip);
    spans.piece[1] = two.first + (first - skip);
    spans.size[1] = count - spans.size[0];
    spans.ringSize = int(ring.capacity());
    return true;
}

//! A ring of time stamps that keeps track of whether they rise, so that a row can be found by binary search.
class TimeRing
{
public:
    explicit TimeRing(int capacity)
        : m_times(SampleRing::capacity_type(capacity))
    {
    }

    const SampleRing &times() const { return m_times; }
    //! Returns true if the newest stamp is \a time.
    bool endsWith(double time) const { return !m_times.empty() && m_newest == time; }
    //! Returns true if each stamp is greater than the one before; a NaN is not.
    bool rises() const { return m_steps == 0; }
    //! Returns another number after each change, which no other ring returns.
    quint64 version() const
    {
        // Counted here rather than at each change, since there are many changes between two calls.
        if (m_changed)
            m_version = RVXBulkPlotData::newXVersion();
        m_changed = false;
        return m_version;
    }

    //! Sets \a spans to stamps as ringSpans() does; \a taken is how many stamps the ring ever took.
    bool spans(int first, int count, qint64 taken, RingSpans &spans) const
    {
        if (!ringSpans(m_times, first, count, spans))
            return false;
        spans.number = taken - qint64(m_times.size()) + first;
        spans.content = m_content.value();
        return true;
    }
    //! Says that the stamps are counted anew, so that each of them has another index.
    void renumber() { m_content.renew(); }

    //! Appends a stamp; a full ring drops its oldest.
    void push_back(double time)
    {
        if (m_times.full())
            releaseOldest();
        if (!m_times.empty() && !(m_newest < time))
            ++m_steps;
        m_times.push_back(time);
        m_newest = time;
        m_changed = true;
    }

    void clear()
    {
        m_times.clear();
        m_steps = 0;
        m_changed = true;
    }

    //! Removes the oldest \a count stamps, of which there are that many.
    void dropOldest(int count)
    {
        const int inside = std::min(count, int(m_times.size()) - 1);
        for (int i = 0; i < inside && m_steps > 0; ++i)
            m_steps -=
                m_times[SampleRing::size_type(i)] < m_times[SampleRing::size_type(i) + 1] ? 0 : 1;
        m_times.erase_begin(SampleRing::size_type(count));
        m_changed = true;
    }
    //! Sets the capacity, which must not be less than the number of stamps.
    void setCapacity(int capacity)
    {
        m_times.set_capacity(SampleRing::capacity_type(capacity));
        m_changed = true;
    }

private:
    //! Prepares a full ring for one more stamp: the step that leaves it with the oldest stamp no longer counts.
    void releaseOldest()
    {
        // Between two stamps of a ring of capacity 1 no step is counted.
        if (m_times.size() <= 1)
            m_times.clear();
        else if (!(m_times[0] < m_times[1]))
            --m_steps;
    }

    SampleRing m_times;
    // Valid unless the ring is empty.
    double m_newest = 0.0;
    // Counts stamps that are not greater than the one before; a NaN is not.
    int m_steps = 0;
    mutable bool m_changed = true;
    mutable quint64 m_version = 0;
    ContentStamp m_content;
};

} // namespace Corvale_Qt
