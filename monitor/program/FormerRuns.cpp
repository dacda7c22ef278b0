// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/FormerRuns.h"

#include "monitor/core/EnglishTexts.h"
#include "monitor/session/Session.h"
#include "monitor/window/CrashNotice.h"
#include "monitor/window/MonitorWindow.h"

#include <QFileInfo>

namespace Monitor {

namespace {

const QString sourceNote = QStringLiteral("source");
const QString pathNote = QStringLiteral("recording path");
const QString fileNote = QStringLiteral("recording file");
const QString secondsNote = QStringLiteral("recording rotates after seconds");
const QString bytesNote = QStringLiteral("recording rotates after bytes");
const QString segmentsNote = QStringLiteral("complete files of the recording become");

QString absolute(const QString &path)
{
    return QFileInfo(path).absoluteFilePath();
}

} // namespace

FormerRuns::FormerRuns(const QString &settingsFile, QObject *parent)
    : QObject(parent)
    , m_former(FormerRun::take(absolute(settingsFile)))
    , m_report(absolute(settingsFile))
{
}

QString FormerRuns::lastNote(const QString &name) const
{
    return m_former.isEmpty() ? QString() : m_former.last().notes.value(name);
}

std::optional<Recorder::Options> FormerRuns::interrupted(const Source &source) const
{
    const QString path = lastNote(pathNote);
    if (path.isEmpty() || !source.isLive() || lastNote(sourceNote) != source.description())
        return std::nullopt;
    Recorder::Options options;
    options.path = path;
    options.continues = true;
    options.rotateSeconds = lastNote(secondsNote).toDouble();
    options.rotateBytes = lastNote(bytesNote).toLongLong();
    options.segments = segmentFormFromName(lastNote(segmentsNote)).value_or(SegmentForm::Text);
    return options;
}

bool FormerRuns::wasRecordingTo(const QString &path) const
{
    return !path.isEmpty() && lastNote(pathNote) == absolute(path);
}

void FormerRuns::follow(Session &session)
{
    const auto keepNotes = [this, &session] {
        const Recorder *recorder = session.recorder();
        const Recorder::Options options = recorder ? recorder->options() : Recorder::Options();
        m_report.note(sourceNote, session.source().description());
        m_report.note(pathNote, recorder ? absolute(options.path) : QString());
        m_report.note(fileNote, recorder ? absolute(recorder->fileName()) : QString());
        m_report.note(secondsNote,
                      options.rotateSeconds > 0.0 ? QString::number(options.rotateSeconds)
                                                  : QString());
        m_report.note(bytesNote,
                      options.rotateBytes > 0 ? QString::number(options.rotateBytes) : QString());
        m_report.note(segmentsNote, recorder ? segmentFormName(options.segments) : QString());
    };
    connect(&session, &Session::recordingChanged, this, keepNotes);
    connect(&session, &Session::sourceReplaced, this, keepNotes);
    keepNotes();
}

void FormerRuns::tell(Session &session, MonitorWindow &window) const
{
    if (m_former.isEmpty())
        return;
    const FormerRun &run = m_former.last();
    const Recorder *recorder = session.recorder();
    const QString goesOn =
        recorder && recorder->options().continues ? absolute(recorder->fileName()) : QString();
    window.addNotice(new CrashNotice(run, lastNote(fileNote), goesOn, window.centralWidget()));
    const EnglishTexts english;
    for (const FormerRun &former : m_former)
        Q_EMIT session.noted(QStringLiteral("WARNING ") + endOfRun(former)
                             + (former.report.isEmpty()
                                    ? QString()
                                    : QStringLiteral(" Its report is ") + former.report));
}

} // namespace Monitor
