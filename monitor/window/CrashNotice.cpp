// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/CrashNotice.h"

#include "monitor/core/RunReport.h"
#include "monitor/dialogs/ReportWindow.h"

#include <QAbstractButton>

namespace Monitor {

namespace {

QString utc(const QDateTime &time)
{
    return time.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString fateOfRecording(const QString &recording, const QString &goesOn)
{
    if (recording.isEmpty())
        return {};
    return QLatin1Char(' ')
        + (goesOn.isEmpty()
               ? CrashNotice::tr("It was recording to %1, and the recording ends there.")
                     .arg(recording)
               : CrashNotice::tr("It was recording to %1; the recording goes on in %2.")
                     .arg(recording, goesOn));
}

} // namespace

QString endOfRun(const FormerRun &run)
{
    if (run.crashed.isValid())
        return CrashNotice::tr("The program crashed at %1 UTC: %2.")
            .arg(utc(run.crashed), run.reason);
    return CrashNotice::tr("The program that was started at %1 UTC did not end properly: it was "
                           "killed, or the computer stopped.")
        .arg(utc(run.began));
}

CrashNotice::CrashNotice(const FormerRun &run,
                         const QString &recording,
                         const QString &goesOn,
                         QWidget *parent)
    : NoticeLine(parent)
{
    setObjectName(QStringLiteral("crashNotice"));
    setDismissible(tr("Close"));
    if (!run.report.isEmpty()) {
        QAbstractButton *show = addButton(tr("Show report"));
        show->setObjectName(QStringLiteral("showReport"));
        connect(show, &QAbstractButton::clicked, this, [this, path = run.report] {
            (new ReportWindow(path, window()))->show();
        });
    }
    tell(endOfRun(run) + fateOfRecording(recording, goesOn), Kind::Waiting);
}

} // namespace Monitor
