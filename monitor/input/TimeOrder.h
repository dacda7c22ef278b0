// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/StreamSink.h"

#include <vector>

namespace Monitor {

/*! Decides by their times which readings of a stream to believe.

    A reading that is not earlier than the one before it is believed at once. Two kinds of readings are held back until
    others agree with them, that is, have times that do not go back: the first reading of a connection needs one more,
    and readings that go back in time need linesOfAnotherTime in all. The latter then begin a new part, since it was
    the time before them that was wrong. No more readings than that are ever held. */
class TimeOrder
{
public:
    static constexpr int linesOfAnotherTime = 10;

    struct Reading
    {
        double time = 0.0;
        std::vector<double> values;
        RefusedLine line; //!< what to report where the reading is refused
    };
    struct Verdict
    {
        std::vector<Reading> refused;
        //! The believed readings begin a part of their own, whose times say nothing about the earlier ones.
        bool newPart = false;
        //! Whether it begins because the times before it turned out to be wrong.
        bool corrected = false;
        std::vector<Reading> believed;
    };

    /*! A connection was made or made again: its first reading may be the end of a line, and its times may start over.
        finish() comes first. */
    void beginConnection() { m_fresh = true; }
    //! Another acquisition begins: no time of the one before says anything about it. finish() comes first.
    void beginAcquisition()
    {
        m_fresh = true;
        m_any = false;
    }
    //! The stream is over: decides on what is held.
    Verdict finish();

    //! Believes a reading of that time at once; false where it must be weighed.
    bool follows(double time)
    {
        if (m_fresh || !m_held.empty() || (m_any && time < m_lastTime))
            return false;
        note(time);
        return true;
    }
    Verdict weigh(Reading reading);

    //! Whether the first reading of a connection waits for the second one.
    bool holdsFirst() const { return m_fresh && !m_held.empty(); }
    //! Hands out what is held and starts over with the next reading.
    std::vector<Reading> giveUpHeld();
    //! The time of the last reading that was believed.
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
