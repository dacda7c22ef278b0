// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/WindowRun.h"

#include "monitor/input/SpotFile.h"
#include "monitor/program/PictureTaker.h"
#include "monitor/program/TerminationSignal.h"
#include "monitor/session/Session.h"
#include "monitor/sources/PgmSource.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/ImportDialog.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/detector/DetectorFile.h>
#include <corvale_qt/widgets/TimeSpanBox.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdio>

namespace Monitor {

WindowRun::WindowRun(const CommandLine &commandLine, QObject *parent)
    : QObject(parent)
    , m_commandLine(commandLine)
{
}

WindowRun::~WindowRun() = default;

QString WindowRun::defaultSettingsFile()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Corvale/corvale-monitor.xui"));
}

//! Returns the settings file. A picture gets an empty one by default, so that it looks the same for every user.
QString WindowRun::settingsFile() const
{
    if (!m_commandLine.settings.isEmpty())
        return m_commandLine.settings;
    return isPicture() ? m_pictureSettings.filePath(QStringLiteral("picture.xui"))
                       : defaultSettingsFile();
}

bool WindowRun::prepare()
{
    if (!openSession())
        return false;
    openWindow();
    return true;
}

bool WindowRun::openSession()
{
    FileSource::Options file = m_commandLine.file;
    const QString path = SourceFactory::filePath(m_commandLine.source);
    const bool isTable = !path.isEmpty() && !PgmSource::suits(path);
    if (!isPicture() && isTable && file.import.isUsual()) {
        WindowSettings settings(settingsFile());
        const std::optional<ImportOptions> import = ImportDialog::optionsFor(path, &settings);
        if (!import)
            return false; // the person does not want to open it
        file.import = *import;
    }
    SourceFactory factory(m_clock, file);
    std::unique_ptr<Source> source = factory.make(m_commandLine.source);
    if (!source) {
        leave(ExitUsage, factory.errorString());
        return false;
    }
    const bool endless = m_commandLine.file.loop || !qobject_cast<FileSource *>(source.get());
    m_session = std::make_unique<Session>(m_clock, std::move(source));
    m_session->setDetector(detectorOfSource());
    if (!openPlan())
        return false;
    m_session->setRange(m_commandLine.rangeLow, m_commandLine.rangeHigh);
    m_session->setComputedChannels(m_commandLine.computed);
    ReadingLimit limit(m_commandLine.afterReadings, m_commandLine.afterSeconds);
    if (isPicture() && endless && !limit.exists())
        limit = ReadingLimit(0, PictureTaker::usualDataTime);
    m_session->setLimit(limit);

    QString error;
    if (!m_commandLine.record.path.isEmpty()
        && !m_session->startRecording(m_commandLine.record, &error)) {
        leave(ExitOutputFailed, error);
        return false;
    }
    return true;
}

/*! Returns the detector of --detector, and remembers its file for the source. Without the option it is the one that was
    remembered, whose trouble the log tells. */
Corvale_Qt::DetectorLayout WindowRun::detectorOfSource()
{
    WindowSettings settings(settingsFile());
    const QString given = m_commandLine.detectorFile, source = m_commandLine.source;
    if (!given.isEmpty()) {
        const bool forget = given == CommandLine::noDetector();
        settings.setDetectorFile(source, forget ? QString() : QFileInfo(given).absoluteFilePath());
        return m_commandLine.detector;
    }
    const QString kept = settings.detectorFile(source);
    if (kept.isEmpty())
        return {};
    Corvale_Qt::DetectorFault fault;
    const Corvale_Qt::DetectorLayout layout = Corvale_Qt::detectorFromFile(kept, &fault);
    m_detectorNote = fault.isEmpty()
        ? tr("the detector is that of %1, as before; --detector none forgets it").arg(kept)
        : tr("ERROR the detector of %1 is not used: %2").arg(kept, fault.message());
    return layout;
}

//! Reads the planned spots. Returns false if there is a list that cannot be used.
bool WindowRun::openPlan()
{
    SpotPlan plan;
    QString error;
    if (!m_commandLine.planned.isEmpty())
        plan.spots = spotsFromFile(m_commandLine.planned, &error);
    plan.toleranceX = m_commandLine.toleranceX;
    plan.toleranceY = m_commandLine.toleranceY;
    m_session->setSpotPlan(plan);
    if (!error.isEmpty())
        leave(ExitBadData, error);
    return error.isEmpty();
}

void WindowRun::openWindow()
{
    m_window = std::make_unique<MonitorWindow>(*m_session, settingsFile());
    if (m_commandLine.size.isValid())
        m_window->resize(m_commandLine.size);
    else if (isPicture())
        m_window->resize(MonitorWindow::usualSize); // no screen limits its size
    if (m_commandLine.span > 0.0)
        m_window->displays().spanControl()->box()->setSpan(m_commandLine.span);
    connect(m_session.get(), &Session::streamStarted, this, &WindowRun::showDisplay);
    if (!m_detectorNote.isEmpty())
        Q_EMIT m_session->noted(m_detectorNote);
    if (!isPicture()) {
        m_window->showHint(hint());
        connect(m_session.get(), &Session::limitReached, m_window.get(), &QWidget::close);
        return;
    }
    auto *picture = new PictureTaker(*m_session, *m_window, m_commandLine.output, this);
    connect(picture, &PictureTaker::done, this, &WindowRun::leave);
}

void WindowRun::showDisplay()
{
    const QString display = m_commandLine.display;
    if (display.isEmpty() || m_window->displays().showDisplay(display))
        return;
    const QString text =
        tr("%1 has no data for the display \"%2\"").arg(m_session->source().description(), display);
    if (isPicture())
        leave(ExitUsage, text);
    else
        Q_EMIT m_session->noted(text);
}

QString WindowRun::hint() const
{
    const QString what = m_session->source().isSimulated()
        ? tr("This beam is simulated.")
        : tr("This is %1.").arg(m_session->source().description());
    return what
        + tr(" For a real source: corvale-monitor PATH, tcp://HOST:PORT, serial:DEVICE or -. "
             "Space pauses, Ctrl+R records.");
}

int WindowRun::run()
{
    if (!m_window)
        return m_exitCode;
    TerminationSignal termination;
    connect(&termination, &TerminationSignal::raised, m_window.get(), &QWidget::close);
    m_window->show();
    m_session->start();
    QApplication::exec();
    m_session->stopRecording();
    for (const QString &text : m_session->incompleteRecordings()) {
        std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(text));
        m_exitCode = m_exitCode == ExitGood ? ExitOutputFailed : m_exitCode;
    }
    return m_exitCode;
}

void WindowRun::leave(ExitCode code, const QString &text)
{
    m_exitCode = code;
    if (!text.isEmpty())
        std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(text));
    if (m_window)
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

} // namespace Monitor
