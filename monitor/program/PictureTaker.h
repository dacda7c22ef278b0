// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/program/CommandLine.h"

#include <QObject>

namespace Monitor {

class MonitorWindow;
class Session;

/*! Waits until a window shows the requested data, and takes a picture of it. It waits for data, not for time, and
    times out only if the source stays silent. */
class PictureTaker : public QObject
{
    Q_OBJECT

public:
    //! Seconds of data after which a source without an end is drawn by default.
    static constexpr double usualDataTime = 2.0;

    //! \a file gets the picture; the end of its name decides the format.
    PictureTaker(Session &session,
                 MonitorWindow &window,
                 const QString &file,
                 QObject *parent = nullptr);

Q_SIGNALS:
    //! Emitted once, with the exit code of the program; \a text says what went wrong, if anything.
    void done(Monitor::ExitCode code, const QString &text);

private:
    void check();
    bool isDue() const;
    void take();
    void giveUp();
    void finish(ExitCode code, const QString &text = QString());

    Session &m_session;
    MonitorWindow &m_window;
    const QString m_file;
    double m_startedAt;
    double m_dueSince = -1.0;
    int m_turns = 0; //!< of the event loop since then
    bool m_limitReached = false;
};

} // namespace Monitor
