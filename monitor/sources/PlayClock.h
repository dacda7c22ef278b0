// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <limits>

namespace Monitor {

//! How many readings without times are played in a second at speed 1.
inline constexpr double countedEachSecond = 50.0;

//! Which time of a recording is due at which second of the clock, with pauses and changes of speed.
class PlayClock
{
public:
    //! Plays \a speed times as fast as the recording was taken; 0 for as fast as possible.
    explicit PlayClock(double speed)
        : m_speed(speed)
    {
    }

    double speed() const { return m_speed; }
    bool isPaused() const { return m_paused; }
    bool isUnpaced() const { return m_speed == 0.0; }
    //! Returns the last time that is due at \a now; infinity while the recording plays as fast as possible.
    double due(double now) const
    {
        if (m_paused)
            return m_time;
        return isUnpaced() ? std::numeric_limits<double>::infinity()
                           : m_time + (now - m_since) * m_speed * m_pace;
    }
    //! Goes to a time of the recording.
    void moveTo(double now, double time)
    {
        m_time = time;
        m_since = now;
    }
    //! Returns how many units of the times of readings pass in a second at speed 1.
    static double paceOf(bool hasTimes) { return hasTimes ? 1.0 : countedEachSecond; }
    //! Sets how many units of the recording's times pass in a second at speed 1.
    void setPace(double perSecond) { m_pace = perSecond; }
    //! Pauses or goes on; \a shown is the time of the last reading that was played.
    void setPaused(double now, bool paused, double shown)
    {
        settle(now, shown);
        m_paused = paused;
    }
    void setSpeed(double now, double speed, double shown)
    {
        settle(now, shown);
        m_speed = speed;
    }

private:
    void settle(double now, double shown)
    {
        moveTo(now, isUnpaced() && !m_paused ? shown : due(now));
    }

    double m_speed;
    double m_pace = 1.0;
    bool m_paused = false;
    double m_time = 0.0;
    double m_since = 0.0;
};

} // namespace Monitor
