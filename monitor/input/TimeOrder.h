// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/StreamSink.h"

#include <vector>

namespace Monitor {

/*! Decides by their times which readings of a stream to believe.

    A reading that is not earlier than the one before it is believed at once. Two kinds of readings are held back until
    others agree with them, that is, until further readings come whose times do not go back. The first reading of a
    connection needs one more. Readings that go back in time are believed once there are linesOfAnotherTime of them;
    they then begin a new part, because the time before them was wrong. No more readings than that are ever held. */
class TimeOrder
{
public:
    static constexpr int linesOfAnotherTime = 10;

    struct Reading
    {
        double time = 0.0;
        std::vector<double> values;
        RefusedLine line; //!< what to report if the reading is refused
    };
    //! What to do with the readings that were held back, in this order.
    struct Verdict
    {
        std::vector<Reading> refused;
        //! Whether the believed readings begin a new part, whose times are independent of the earlier ones.
        bool newPart = false;
        //! Whether that part begins because the times before it turned out to be wrong.
        bool corrected = false;
        std::vector<Reading> believed;
    };

    /*! Call this, after finish(), when a connection was made or made again: its first reading may be the end of a
        line, and its times may start over. */
    void beginConnection() { m_fresh = true; }
    //! Call this, after finish(), when another acquisition begins: its times are independent of the earlier ones.
    void beginAcquisition()
    {
        m_fresh = true;
        m_any = false;
    }
    //! Ends the stream: decides about the readings that are held.
    Verdict finish();

    //! Believes a reading of that time if that is possible at once; returns false if weigh() must decide.
    bool follows(double time)
    {
        if (m_fresh || !m_held.empty() || (m_any && time < m_lastTime))
            return false;
        note(time);
        return true;
    }
    //! Holds the reading back, or decides about it and those held before.
    Verdict weigh(Reading reading);

    //! Returns whether the first reading of a connection waits for the second one.
    bool holdsFirst() const { return m_fresh && !m_held.empty(); }
    //! Returns the readings that are held and starts over with the next one.
    std::vector<Reading> giveUpHeld();
    //! Returns the time of the last reading that was believed, in seconds.
    double lastTime() const { return m_lastTime; }

private:
    void note(double time)
    {
        m_any = true;
        m_lastTime = time;
    }
    void weighSecond(Reading reading, Verdict *verdict);
    void weighLater(Reading reading, Verdict *verdict);
    void refuseHeld(Verdict *verdict);
    void believeHeld(Verdict *verdict);

    bool m_fresh = true;
    bool m_any = false;
    double m_lastTime = 0.0;
    std::vector<Reading> m_held;
};

} // namespace Monitor
