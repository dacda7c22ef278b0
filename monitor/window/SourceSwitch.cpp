// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SourceSwitch.h"

#include "monitor/session/RotationText.h"
#include "monitor/session/Session.h"
#include "monitor/sources/NoSource.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/window/ImportDialog.h"
#include "monitor/window/KeptCompanions.h"
#include "monitor/window/SourceDetector.h"
#include "monitor/window/SourceImport.h"
#include "monitor/window/WindowSettings.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace Monitor {

namespace {

const QString recentKey = QStringLiteral("recent");
const QString openKey = QStringLiteral("open-source");

} // namespace

SourceSwitch::SourceSwitch(Session &session, WindowSettings &settings, QWidget *window)
    : QObject(window)
    , m_session(session)
    , m_settings(settings)
    , m_window(window)
{
}

QString SourceSwitch::completed(const QString &text)
{
    const QString path = text.startsWith(QLatin1String("file:")) ? text.mid(5) : text;
    return QFileInfo::exists(path) ? QFileInfo(path).absoluteFilePath() : text;
}

void SourceSwitch::setCurrent(const QString &text)
{
    m_current = text.isEmpty() ? text : completed(text);
    remember();
    Q_EMIT currentChanged();
}

bool SourceSwitch::open(const QString &text)
{
    const std::optional<ImportOptions> import =
        importOfSource(text, m_options.file.import, &m_settings, m_window);
    return import // otherwise the person does not want to open it
        && openAs(text, *import, tr("Opening another source ends the recording."));
}

bool SourceSwitch::isTable() const
{
    return tableOf(m_session.source()) != nullptr;
}

bool SourceSwitch::readAgain()
{
    const FileSource *table = tableOf(m_session.source());
    if (!table)
        return false;
    const std::optional<ImportOptions> import =
        ImportDialog::otherOptions(table->path(), table->options().import, &m_settings, m_window);
    return import && openAs(m_current, *import, tr("Reading the table again ends the recording."));
}

//! Opens a source whose table, if it is one, is read in this way; \a ending says what that does to a recording.
bool SourceSwitch::openAs(const QString &text, const ImportOptions &import, const QString &ending)
{
    FileSource::Options file = m_options.file;
    file.import = import;
    SourceFactory factory(m_session.clock(), file);
    std::unique_ptr<Source> source = factory.make(text);
    if (!source) {
        QMessageBox::warning(m_window, tr("Open"), factory.errorString());
        return false;
    }
    if (!mayEndRecording(ending))
        return false;
    const SourceDetector detector = keptDetector(text, m_options.detectorFile, m_settings);
    m_session.setDetector(detector.layout);
    m_session.replaceSource(std::move(source));
    setCurrent(text);
    for (const QString &note : {detector.note, importNote(import)})
        if (!note.isEmpty())
            Q_EMIT m_session.noted(note);
    recordIfWanted();
    return true;
}

void SourceSwitch::close()
{
    if (m_session.source().isNone()
        || !mayEndRecording(tr("Closing the source ends the recording.")))
        return;
    m_session.replaceSource(std::make_unique<NoSource>(m_session.clock()));
    m_current.clear();
    remember();
    Q_EMIT currentChanged();
}

bool SourceSwitch::mayEndRecording(const QString &what) const
{
    const Recorder *recorder = m_session.recorder();
    if (!recorder)
        return true;
    QMessageBox box(QMessageBox::Question,
                    tr("End the recording?"),
                    tr("%1 What was recorded stays in %2.").arg(what, recorder->fileName()),
                    QMessageBox::NoButton,
                    m_window);
    box.setTextFormat(Qt::PlainText); // a file may be called anything
    QPushButton *end = box.addButton(tr("&End the recording"), QMessageBox::AcceptRole);
    box.addButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == end;
}

void SourceSwitch::recordIfWanted()
{
    if (m_options.recordFolder.isEmpty())
        return;
    Recorder::Options options;
    options.path = m_options.recordFolder;
    setRotation(&options, m_options.rotation);
    options.segments = m_options.segments;
    QString error;
    if (!m_session.startRecording(options, &error))
        QMessageBox::warning(m_window,
                             tr("Record"),
                             tr("The source is open, but it is not recorded: %1. Choose another "
                                "folder in File > Settings..., or record with File > Record...")
                                 .arg(error));
}

QStringList SourceSwitch::recent() const
{
    return m_settings.list(recentKey);
}

void SourceSwitch::forgetRecent()
{
    m_settings.setList(recentKey, {});
}

bool SourceSwitch::isOpenIn(const QString &settingsFile, const QString &text)
{
    const WindowSettings settings(settingsFile);
    QStringList open = openCompanions(settings);
    open.prepend(settings.text(openKey));
    return std::any_of(open.begin(), open.end(), [&text](const QString &source) {
        return completed(source) == completed(text);
    });
}

//! Standard input is not kept as a recent source: it cannot be opened again.
void SourceSwitch::remember()
{
    m_settings.setText(openKey, m_current);
    noteNoCompanions(m_settings);
    if (m_current.isEmpty() || m_current == QLatin1String("-"))
        return;
    QStringList texts = recent();
    texts.removeAll(m_current);
    texts.prepend(m_current);
    m_settings.setList(recentKey, texts.mid(0, mostRecent));
}

void SourceSwitch::beginWith(const MonitorOptions &options)
{
    m_options = options;
    Q_EMIT optionsChanged(m_options);
}

void SourceSwitch::setOptions(const MonitorOptions &options)
{
    const QString formerDetector = m_options.detectorFile;
    m_options = options;
    Q_EMIT optionsChanged(m_options);
    m_session.setRange(options.rangeLow, options.rangeHigh);
    if (options.detectorFile == formerDetector)
        return;
    const SourceDetector detector = keptDetector(m_current, options.detectorFile, m_settings);
    if (detector.fault.isEmpty())
        m_session.setDetector(detector.layout);
    else
        QMessageBox::warning(m_window,
                             tr("Settings"),
                             tr("The detector stays as it was: %1. Choose another file.")
                                 .arg(detector.fault.shown()));
    if (!detector.note.isEmpty())
        Q_EMIT m_session.noted(detector.note);
}

} // namespace Monitor
