// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/ActivityWatch.h"

#include <algorithm>

namespace Monitor {

namespace {

constexpr double follow = 0.1;
//! Arrivals that are closer to each other are one.
constexpr double together = 0.005; // s
constexpr double stalePeriods = 3.0;
constexpr double shortestSilence = 0.2; // s

} // namespace

void ActivityWatch::noteArrival(double now, int readings)
{
    m_beganAt = std::min(m_beganAt, now);
    const bool isLate = isStale(now), begins = now - m_beganAt < together;
    const double interval = now - m_countedUntil;
    m_lastArrival = now;
    // A pause does not count as an interval, but a second one after it shows that readings have become rarer. What comes
    // first may have waited for any time: a file is filled up to the place that was sought.
    const bool isPause = begins || (isLate && !m_wasLate);
    if (!isPause) {
        m_arrived += readings;
        if (interval < together)
            return;
        const double weight = m_interval > 0.0 && !isLate ? follow : 1.0;
        m_interval += weight * (interval - m_interval);
        m_readingsEach += weight * (double(m_arrived) - m_readingsEach);
    }
    m_wasLate = isLate && isPause;
    m_countedUntil = now;
    m_arrived = 0;
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
