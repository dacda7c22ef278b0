// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/program/CommandLine.h"
#include "monitor/sources/Clock.h"

#include <QElapsedTimer>

#include <memory>

namespace Monitor {

class MonitorWindow;
class Session;

//! The window, on a screen or into a picture.
class WindowRun : public QObject
{
    Q_OBJECT

public:
    explicit WindowRun(const CommandLine &commandLine, QObject *parent = nullptr);
    ~WindowRun() override;

    //! Where settings lie when --settings does not say.
    static QString defaultSettingsFile();

    //! Runs the event loop and returns the exit code.
    int run();
    MonitorWindow *window() const { return m_window.get(); }
    //! False, with a line on stderr and exitCode(), where the source or the recording cannot be had.
    bool prepare();

private:
    QString hint() const;
    void checkPicture();
    bool isPictureDue() const;
    void takePicture();
    void complain(const QString &text) const;

    const CommandLine m_commandLine;
    QString m_settingsFile;
    SystemClock m_clock;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<MonitorWindow> m_window;
    int m_exitCode = ExitGood;
    double m_dueSince = -1.0;
};

} // namespace Monitor
