// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/ReadingBlock.h"

namespace Monitor {

/*! How much of a stream a run takes: a number of readings, a number of seconds of the readings' times, or everything. Seconds of readings
    without times are those that it takes to play them.
    It cuts exactly after the last reading, whatever the blocks are. */
class ReadingLimit
{
public:
    //! Takes everything.
    ReadingLimit() = default;
    //! Takes at most \a readings readings and \a seconds seconds; 0 means that there is no such limit.
    ReadingLimit(qint64 readings, double seconds)
        : m_readings(readings)
        , m_seconds(seconds)
    {
    }

    //! Sets how many units of the readings' times pass in a second, see PlayClock::paceOf().
    void setPace(double perSecond) { m_pace = perSecond; }
    //! Returns whether there is a limit.
    bool exists() const { return m_readings > 0 || m_seconds > 0.0; }
    //! Returns whether the last reading of the run has been taken.
    bool isReached() const { return m_reached; }
    //! Returns the readings of this block that still belong to the run; valid until the next call.
    const ReadingBlock &take(const ReadingBlock &readings);

private:
    bool endsWith(double time, qint64 number) const;

    qint64 m_readings = 0;
    double m_seconds = 0.0;
    double m_pace = 1.0;
    qint64 m_taken = 0;
    double m_firstTime = 0.0;
    bool m_reached = false;
    ReadingBlock m_part;
};

} // namespace Monitor
