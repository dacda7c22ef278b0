// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/RecordAction.h"

#include "monitor/core/Clock.h"
#include "monitor/session/Session.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace Monitor {

RecordAction::RecordAction(Session &session, QWidget *window)
    : QAction(window)
    , m_session(session)
    , m_window(window)
    , m_folder(QDir::homePath())
{
    setObjectName(QStringLiteral("record"));
    setShortcut(QKeySequence(Qt::CTRL + Qt::Key_R));
    setShortcutContext(Qt::ApplicationShortcut);
    connect(this, &QAction::triggered, this, &RecordAction::toggle);
    connect(&session, &Session::recordingChanged, this, &RecordAction::refresh);
    refresh();
}

void RecordAction::refresh()
{
    setText(m_session.recorder() ? tr("Stop &recording") : tr("&Record..."));
}

QString RecordAction::suggestedPath() const
{
    const QDateTime now = m_session.clock().wallTime();
    return QDir(m_folder).filePath(now.toString(QStringLiteral("'corvale-'yyyyMMdd-HHmmss'.csv'")));
}

void RecordAction::toggle()
{
    if (m_session.recorder()) {
        m_session.stopRecording();
        return;
    }
    QFileDialog dialog(m_window, tr("Record"), m_folder, tr("Recordings (*.csv)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // With the suffix set here, the dialog checks the final name for an existing file.
    dialog.setDefaultSuffix(QStringLiteral("csv"));
    dialog.selectFile(suggestedPath());
    QString error;
    if (dialog.exec() == QDialog::Accepted && !recordTo(dialog.selectedFiles().value(0), &error))
        QMessageBox::warning(m_window, tr("Record"), tr("%1. Choose another file.").arg(error));
}

bool RecordAction::recordTo(const QString &path, QString *error)
{
    Recorder::Options options;
    options.path = path;
    options.overwrite =
        m_session.recordingLabel().isEmpty(); // the dialog has asked about this file
    m_folder = QFileInfo(path).absolutePath();
    return m_session.startRecording(options, error);
}

} // namespace Monitor
