// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/Session.h"
#include "tests/monitor/support/ManualClock.h"
#include "tests/monitor/support/ScriptedSource.h"

//! A session on a source and a clock that the test moves.
struct ScriptedSession
{
    ManualClock clock;
    ScriptedSource *source = new ScriptedSource(clock);
    Monitor::Session session{clock, std::unique_ptr<Monitor::Source>(source)};

    //! Lets the model have what was given.
    void settle() { clock.advance(0.05); }
    //! A reading every 0.1 s, for so many of them.
    void run(int readings)
    {
        for (int i = 0; i < readings; ++i) {
            clock.advance(0.1);
            source->give();
        }
    }
};
