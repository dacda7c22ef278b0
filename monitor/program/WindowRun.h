// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/Clock.h"
#include "monitor/program/CommandLine.h"
#include "monitor/session/MonitorOptions.h"

#include <QTemporaryDir>

#include <corvale_monitor/ResultPublisher.h>
#include <memory>
#include <vector>

namespace Monitor {

class FormerRuns;
class MonitorWindow;
class Session;
class Source;

//! The run with a window, on a screen or for a picture: puts source, session and window together and runs them.
class WindowRun : public QObject
{
    Q_OBJECT

public:
    explicit WindowRun(const CommandLine &commandLine, QObject *parent = nullptr);
    ~WindowRun() override;

    //! Returns the path of the settings file without --settings.
    static QString defaultSettingsFile();

    /*! Opens the source, the recording and the window. Returns false, with a line on stderr, if that fails; run() then
        returns at once. */
    bool prepare();
    //! Returns the window; null if prepare() failed.
    MonitorWindow *window() const { return m_window.get(); }
    //! Runs the event loop and returns the exit code.
    int run();

private:
    struct Beside
    {
        NamedAddress address;
        std::unique_ptr<Source> source;
    };

    bool isPicture() const { return m_commandLine.task == CommandLine::Task::Screenshot; }
    void chooseOptions();
    bool openDressed();
    std::unique_ptr<Source> makeSource(const FileSource::Options &file);
    bool openSession();
    bool openPlan();
    bool openRecording();
    std::optional<ImportOptions> importBeside(const QString &address);
    bool openBeside();
    void readBeside();
    bool openPublications();
    void publish(std::size_t source, Session &session);
    Corvale_Qt::DetectorLayout detectorOfSource();
    void openWindow();
    QString settingsFile() const;
    void showDisplay();
    void leave(ExitCode code, const QString &text = QString());

    const CommandLine m_commandLine;
    QTemporaryDir m_pictureSettings;
    QString m_source; //!< empty for none
    MonitorOptions m_options;
    SystemClock m_clock;
    std::unique_ptr<FormerRuns> m_formerRuns; //!< null for a picture
    std::unique_ptr<Session> m_session;
    QString m_leadName; //!< among the sources that are read together
    std::vector<Beside> m_beside; //!< the sources after the first one, until they are read
    //! For each source of the command line, null if its results are not published; until its session has it.
    std::vector<std::unique_ptr<CorvaleMonitor::Publication>> m_publications;
    std::unique_ptr<MonitorWindow> m_window;
    QString m_importNote; //!< for the log: how the table is read
    QString m_detectorNote; //!< for the log: which detector was remembered
    QString m_recordingNote; //!< for the log: why an interrupted recording does not go on
    QStringList m_besideNotes; //!< for the log: which sources are not read again
    ExitCode m_exitCode = ExitGood;
};

} // namespace Monitor
