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

    //! Starts the session with a stream of independent channels.
    void begin(int channels, const QString &unit = {})
    {
        session.start();
        source->begin(Monitor::StreamKind::Channels, channels, unit);
    }
    //! Records to a file; returns what was wrong, if anything.
    QString record(const QString &path, bool overwrite = false)
    {
        QString error;
        Monitor::Recorder::Options options;
        options.path = path;
        options.overwrite = overwrite;
        return session.startRecording(options, &error) ? QString() : error;
    }
    //! Lets the model have what was given.
    void settle() { clock.advance(0.05); }
    //! Gives \a readings readings, one every 0.1 s.
    void run(int readings)
    {
        for (int i = 0; i < readings; ++i) {
            clock.advance(0.1);
            source->give();
        }
    }
};
