// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/program/CommandLine.h"

#include <QObject>

namespace Monitor {

class MonitorWindow;
class Session;

/*! Waits until a window shows the data that a picture was asked of, and takes it. It waits for data, not for time; only
    for a source that stays silent there is an end to its patience. */
class PictureTaker : public QObject
{
    Q_OBJECT

public:
    //! What a picture of a source without an end waits for where nothing else was said.
    static constexpr double usualDataTime = 2.0; // s

    PictureTaker(Session &session,
                 MonitorWindow &window,
                 const QString &file,
                 QObject *parent = nullptr);

Q_SIGNALS:
    //! With what the program is to end; \a text says what went wrong.
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
    bool m_limitReached = false;
};

} // namespace Monitor
