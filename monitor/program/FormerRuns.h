// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/RunReport.h"
#include "monitor/recording/Recorder.h"

#include <QObject>

#include <optional>

namespace Monitor {

class MonitorWindow;
class Session;
class Source;

/*! What a window does about runs with its settings that did not end properly: it says so, and goes on with their recording. It
    keeps the notes of the present run for the next one. */
class FormerRuns : public QObject
{
    Q_OBJECT

public:
    //! Takes the runs with this settings file and begins the report of the present one.
    explicit FormerRuns(const QString &settingsFile, QObject *parent = nullptr);

    //! Returns the recording of that source that was interrupted, with the options to go on with it; nothing if there is none.
    std::optional<Recorder::Options> interrupted(const Source &source) const;
    //! Returns whether the recording to that path was interrupted, so that it is not to be begun again but continued.
    bool wasRecordingTo(const QString &path) const;
    //! Keeps notes of what the session records, from now on.
    void follow(Session &session);
    //! Shows in the window and in the log how the last run ended. The recording must have begun.
    void tell(Session &session, MonitorWindow &window) const;

private:
    QString lastNote(const QString &name) const;

    const QVector<FormerRun> m_former;
    RunReport m_report;
};

} // namespace Monitor
