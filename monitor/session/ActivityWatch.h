// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGlobal>

namespace Monitor {

//! Follows how often readings come, and tells when they should have come and did not.
class ActivityWatch
{
public:
    //! Nothing is known of what came before.
    void reset() { *this = ActivityWatch(); }
    void noteArrival(double now, int readings);
    //! Silent for more than three of the usual intervals (and for 0.2 s at least, which jitter may take).
    bool isStale(double now) const;
    //! Readings a second over the last second or so; 0 while stale.
    double rate(double now) const;
    //! When the last readings came; 0 before the first.
    double lastArrival() const { return m_lastArrival; }

private:
    qint64 m_arrivals = 0;
    double m_lastArrival = 0.0;
    double m_interval = 0.0;
    double m_readingsEach = 0.0;
};

} // namespace Monitor
