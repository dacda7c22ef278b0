// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/WindowRun.h"

#include "monitor/core/EnglishTexts.h"
#include "monitor/core/LoopWatch.h"
#include "monitor/input/SpotFile.h"
#include "monitor/program/CompressionWait.h"
#include "monitor/program/FormerRuns.h"
#include "monitor/program/PictureTaker.h"
#include "monitor/program/SessionResults.h"
#include "monitor/program/TerminationSignal.h"
#include "monitor/publishing/Publishing.h"
#include "monitor/publishing/ResultFeed.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/session/Companions.h"
#include "monitor/sources/NoSource.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/window/Appearance.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/KeptCompanions.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/SourceBeside.h"
#include "monitor/window/SourceDetector.h"
#include "monitor/window/SourceImport.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/widgets/TimeSpanBox.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
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
    if (!openPublications() || !openDressed())
        return false;
    openWindow();
    return true;
}

//! Opens the session; what is asked before there is a window looks as the window will.
bool WindowRun::openDressed()
{
    if (isPicture())
        return openSession();
    WindowSettings settings(settingsFile());
    QMenu unseen;
    const Appearance appearance(settings, &unseen, nullptr);
    return openSession();
}

/*! Chooses what is opened and how: the kept settings, and what the command line says instead. A picture is the same for
    every user. */
void WindowRun::chooseOptions()
{
    m_source = m_commandLine.source;
    m_options.file = m_commandLine.file;
    m_options.rangeLow = m_commandLine.rangeLow;
    m_options.rangeHigh = m_commandLine.rangeHigh;
    const WindowSettings settings(settingsFile());
    m_options.verdictLimits = keptOptions(settings).verdictLimits;
    if (isPicture())
        return;
    m_options = keptOptions(settings);
    const double keptSpeed = m_options.file.speed;
    m_options.file = m_commandLine.file;
    if (!m_commandLine.speedGiven)
        m_options.file.speed = keptSpeed;
    if (m_commandLine.rangeLow < m_commandLine.rangeHigh) {
        m_options.rangeLow = m_commandLine.rangeLow;
        m_options.rangeHigh = m_commandLine.rangeHigh;
    }
    if (!m_commandLine.detector.isEmpty())
        m_options.detectorFile.clear();
    if (m_commandLine.sourceGiven)
        return;
    if (m_options.start == MonitorOptions::Start::Nothing)
        m_source.clear();
    else if (m_options.start == MonitorOptions::Start::LastSource)
        m_source = settings.list(QStringLiteral("recent")).value(0, m_source);
}

//! Makes the first source. Returns null, and says why, if the command line does not name one.
std::unique_ptr<Source> WindowRun::makeSource(const FileSource::Options &file)
{
    if (m_source.isEmpty())
        return std::make_unique<NoSource>(m_clock);
    const EnglishTexts english; // of what the terminal shows
    SourceFactory factory(m_clock, file);
    std::unique_ptr<Source> source = factory.make(m_source);
    if (!source)
        leave(ExitUsage, factory.errorString());
    return source;
}

bool WindowRun::openSession()
{
    chooseOptions();
    FileSource::Options file = m_options.file;
    m_options.file.import = ImportOptions(); // --import tells of the first source alone
    if (!isPicture()) {
        WindowSettings settings(settingsFile());
        const std::optional<ImportOptions> import =
            importOfSource(m_source, file.import, &settings);
        if (!import)
            return false; // the person does not want to open it
        file.import = *import;
        m_importNote = importNote(file.import);
    }
    std::unique_ptr<Source> source = makeSource(file);
    if (!source)
        return false;
    const bool endless = m_options.file.loop || !qobject_cast<FileSource *>(source.get());
    m_session = std::make_unique<Session>(m_clock, std::move(source));
    m_session->setDetector(detectorOfSource());
    if (!openPlan())
        return false;
    m_session->setComputedChannels(m_commandLine.computed);
    m_session->setRange(m_options.rangeLow, m_options.rangeHigh);
    ReadingLimit limit(m_commandLine.afterReadings, m_commandLine.afterSeconds);
    if (isPicture() && endless && !limit.exists())
        limit = ReadingLimit(0, PictureTaker::usualDataTime);
    m_session->setLimit(limit);

    return openBeside() && openRecording();
}

//! Returns how a table beside the first source is to be read; nothing if the person who was asked cancels.
std::optional<ImportOptions> WindowRun::importBeside(const QString &address)
{
    if (isPicture())
        return ImportOptions();
    WindowSettings settings(settingsFile());
    return importOfSource(address, ImportOptions(), &settings);
}

/*! Makes the sources that are read beside the first one: those of the command line, or those that were beside it before. Returns
    false if one that the command line names cannot be made. */
bool WindowRun::openBeside()
{
    const bool areGiven = m_commandLine.sourceGiven;
    QVector<NamedAddress> sources = m_commandLine.sources.mid(1);
    if (!areGiven && !isPicture() && !m_source.isEmpty())
        sources = keptCompanions(m_source, WindowSettings(settingsFile()));
    for (const NamedAddress &source : qAsConst(sources)) {
        const std::optional<ImportOptions> import = importBeside(source.address);
        if (!import)
            return false; // the person does not want to open it
        const EnglishTexts english; // of what the terminal and the log show
        QString error;
        std::unique_ptr<Source> made = sourceBeside(*m_session, source.address, *import, &error);
        if (made) {
            m_beside.push_back({source, std::move(made)});
        } else if (areGiven) {
            leave(ExitUsage, error);
            return false;
        } else {
            m_besideNotes +=
                QStringLiteral(
                    "ERROR the source %1 is not read again: %2. Add it with File > Add source...")
                    .arg(source.name, error);
        }
    }
    m_leadName = areGiven ? m_commandLine.sources.first().name : usualSourceName(m_source);
    if (!m_beside.empty())
        m_session->setRecordingLabel(m_leadName);
    return true;
}

//! Opens what the results are published under, before the sources. Returns false if that fails.
bool WindowRun::openPublications()
{
    const EnglishTexts english; // of what the terminal shows
    QString error;
    m_publications = Monitor::openPublications(m_commandLine.published, &error);
    if (!error.isEmpty())
        leave(ExitUsage, error);
    return error.isEmpty();
}

//! Publishes the results of a session if that is wanted of its source, judged as the window judges them.
void WindowRun::publish(std::size_t source, Session &session)
{
    // A source that is opened again because an earlier run read it has no place in the command line.
    if (source >= m_publications.size() || !m_publications[source])
        return;
    ResultFeed *feed = publishResults(session, std::move(m_publications[source]));
    feed->setVerdictLimits(m_options.verdictLimits);
    connect(&m_window->sources(),
            &SourceSwitch::optionsChanged,
            feed,
            [feed](const MonitorOptions &options) {
                feed->setVerdictLimits(options.verdictLimits);
            });
}

//! Begins to read the sources after the first one.
void WindowRun::readBeside()
{
    if (m_beside.empty())
        return;
    const WindowSettings settings(settingsFile());
    m_window->companions().setLeadName(m_leadName);
    for (std::size_t i = 0; i < m_beside.size(); ++i) {
        Beside &beside = m_beside[i];
        addBeside(m_window->companions(), beside.address, std::move(beside.source), settings);
        publish(i + 1, *m_window->companions().members().back().session);
    }
    m_beside.clear();
}

//! Begins the recording of --record, or goes on with the one that a crash has interrupted. Returns false if it cannot.
bool WindowRun::openRecording()
{
    m_session->setRecordingMode(m_commandLine.record.mode);
    if (!isPicture()) {
        m_formerRuns = std::make_unique<FormerRuns>(settingsFile());
        m_formerRuns->follow(*m_session);
    }
    Recorder::Options options = m_commandLine.record;
    const bool wanted = !options.path.isEmpty();
    if (m_formerRuns && wanted)
        options.continues = m_formerRuns->wasRecordingTo(options.path);
    else if (m_formerRuns)
        options = m_formerRuns->interrupted(m_session->source()).value_or(options);
    const EnglishTexts english; // of what the terminal and the log show
    QString error;
    if (options.path.isEmpty() || m_session->startRecording(options, &error))
        return true;
    if (wanted)
        leave(ExitOutputFailed, error);
    else
        m_recordingNote =
            QStringLiteral("ERROR the interrupted recording does not go on: ") + error;
    return !wanted;
}

/*! Returns the detector of --detector, and remembers its file for the source that is opened. Without the option it is the
    one that was remembered, or that of the settings; the log tells what became of it. */
Corvale_Qt::DetectorLayout WindowRun::detectorOfSource()
{
    WindowSettings settings(settingsFile());
    const QString given = m_commandLine.detectorFile;
    if (!given.isEmpty()) {
        const bool forget = given == CommandLine::noDetector();
        if (!m_source.isEmpty())
            keepDetector(m_source, forget ? QString() : given, settings);
        return m_commandLine.detector;
    }
    const SourceDetector detector = keptDetector(m_source, m_options.detectorFile, settings);
    m_detectorNote = detector.note;
    return detector.layout;
}

//! Reads the planned spots. Returns false if there is a list that cannot be used.
bool WindowRun::openPlan()
{
    const EnglishTexts english; // of what the terminal shows
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
    m_window->sources().beginWith(m_options);
    if (!isPicture())
        m_window->sources().setCurrent(m_source);
    if (m_commandLine.size.isValid())
        m_window->resize(m_commandLine.size);
    else if (isPicture())
        m_window->resize(MonitorWindow::usualSize); // no screen limits its size
    if (m_commandLine.span > 0.0)
        m_window->displays().spanControl()->box()->setSpan(m_commandLine.span);
    connect(m_session.get(), &Session::streamStarted, this, &WindowRun::showDisplay);
    for (const QString &note :
         QStringList{m_detectorNote, m_importNote, m_recordingNote} + m_besideNotes)
        if (!note.isEmpty())
            Q_EMIT m_session->noted(note);
    if (!isPicture()) {
        m_window->showHint();
        m_formerRuns->tell(*m_session, *m_window);
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
        tr("%1 has no data for the display \"%2\"; --view scope shows every kind of readings")
            .arg(m_session->source().description(), display);
    if (isPicture())
        leave(ExitUsage, text);
    else
        Q_EMIT m_session->noted(text);
}

int WindowRun::run()
{
    if (!m_window)
        return m_exitCode;
    TerminationSignal termination;
    connect(&termination, &TerminationSignal::raised, m_window.get(), &QWidget::close);
    const LoopWatch watch(m_clock);
    connect(&watch, &LoopWatch::stalled, m_session.get(), [this](const QString &text) {
        Q_EMIT m_session->noted(QStringLiteral("WARNING ") + text);
    });
    m_window->show();
    publish(0, *m_session);
    m_session->start();
    readBeside();
    QApplication::exec();
    if (m_commandLine.diagnostics)
        std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(watch.summary()));
    m_clock.setBackground(false); // what came last is read, and so recorded
    m_session->stopRecording();
    CompressionWait wait(m_session->compressor());
    connect(&termination, &TerminationSignal::raised, &wait, &QDialog::reject);
    wait.wait();
    for (const QString &text : m_session->compressor().takeErrors())
        std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(text));
    for (const QString &text :
         m_session->incompleteRecordings() + m_window->companions().incompleteRecordings()) {
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
