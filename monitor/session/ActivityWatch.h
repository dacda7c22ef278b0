// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGlobal>

#include <limits>

namespace Monitor {

//! Follows how often readings come, and tells when they are overdue.
class ActivityWatch
{
public:
    //! Forgets all arrivals.
    void reset() { *this = ActivityWatch(); }
    //! Call this when \a readings readings arrived at \a now seconds.
    void noteArrival(double now, int readings);
    //! Returns whether nothing came for more than three of the usual intervals, and for 0.2 s at least.
    bool isStale(double now) const;
    //! Returns the readings per second, averaged over about ten arrivals; 0 while stale.
    double rate(double now) const;
    //! Returns the time of the last arrival in seconds; 0 before the first.
    double lastArrival() const { return m_lastArrival; }

private:
    double m_beganAt = std::numeric_limits<double>::infinity();
    bool m_wasLate = false; //!< a pause ended with the last arrival
    double m_lastArrival = 0.0;
    double m_countedUntil = 0.0;
    qint64 m_arrived = 0; //!< readings since then
    double m_interval = 0.0;
    double m_readingsEach = 0.0;
};

} // namespace Monitor
