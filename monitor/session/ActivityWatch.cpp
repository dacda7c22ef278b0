// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/ActivityWatch.h"

#include <algorithm>

namespace Monitor {

namespace {

constexpr double follow = 0.1;
constexpr double stalePeriods = 3.0;
constexpr double shortestSilence = 0.2; // s

} // namespace

void ActivityWatch::noteArrival(double now, int readings)
{
    if (m_arrivals == 0) {
        m_readingsEach = readings;
    } else {
        // A pause does not count as an interval.
        const double interval = now - m_lastArrival;
        if (m_interval == 0.0)
            m_interval = interval;
        else if (!isStale(now))
            m_interval += follow * (interval - m_interval);
        m_readingsEach += follow * (readings - m_readingsEach);
    }
    ++m_arrivals;
    m_lastArrival = now;
}

bool ActivityWatch::isStale(double now) const
{
    const bool intervalKnown = m_interval > 0.0;
    return intervalKnown
        && now - m_lastArrival > std::max(stalePeriods * m_interval, shortestSilence);
}

double ActivityWatch::rate(double now) const
{
    return m_interval > 0.0 && !isStale(now) ? m_readingsEach / m_interval : 0.0;
}

} // namespace Monitor
