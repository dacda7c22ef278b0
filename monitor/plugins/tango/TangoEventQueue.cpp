// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoEventQueue.h"

#include <utility>

void TangoEventQueue::restart()
{
    const std::lock_guard lock(m_mutex);
    m_content = {};
    m_numbers = 0;
    m_hasFirst = false;
}

void TangoEventQueue::add(TangoReading reading)
{
    const std::lock_guard lock(m_mutex);
    if (!m_hasFirst) {
        m_hasFirst = true;
        m_firstTime = reading.time;
        m_firstArrival = Clock::now();
    } else if (isOvertaken(reading.time)) {
        return;
    }
    const std::size_t numbers = reading.values.size() + 1; // one without values takes room as well
    if (m_numbers + numbers > mostNumbers) {
        ++m_content.lost;
    } else {
        m_numbers += numbers;
        m_content.readings.push_back(std::move(reading));
    }
    m_changed.notify_all();
}

//! Returns whether a reading was made before the one at the subscription, which came first nevertheless.
bool TangoEventQueue::isOvertaken(double time) const
{
    return time < m_firstTime && Clock::now() - m_firstArrival < overtaking;
}

void TangoEventQueue::noteGap()
{
    const std::lock_guard lock(m_mutex);
    m_content.hasGap = true;
    m_changed.notify_all();
}

void TangoEventQueue::noteSilence()
{
    const std::lock_guard lock(m_mutex);
    m_content.isSilent = true;
    m_changed.notify_all();
}

bool TangoEventQueue::hasNews() const
{
    return !m_content.readings.empty() || m_content.lost > 0 || m_content.hasGap
        || m_content.isSilent;
}

void TangoEventQueue::waitUntil(Clock::time_point moment)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_until(lock, moment, [this] {
        return m_isClosed || hasNews();
    });
}

TangoEventQueue::Content TangoEventQueue::takeAll()
{
    const std::lock_guard lock(m_mutex);
    m_numbers = 0;
    return std::exchange(m_content, {});
}

void TangoEventQueue::close()
{
    const std::lock_guard lock(m_mutex);
    m_isClosed = true;
    m_changed.notify_all();
}
