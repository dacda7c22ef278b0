// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/WindowRun.h"

#include "monitor/program/TerminationSignal.h"
#include "monitor/session/Session.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/window/MonitorWindow.h"
#include "monitor/window/PictureExport.h"
#include "monitor/window/ViewTabs.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

namespace Monitor {

namespace {

//! What a picture waits for where nothing else was said.
constexpr double usualPictureTime = 2.0; // s of the data
//! For a display to show what it was handed: it paints ten times a second.
constexpr double settlingTime = 0.5; // s
//! A source that brings nothing for so long will bring nothing.
constexpr double patience = 20.0; // s

} // namespace

WindowRun::WindowRun(const CommandLine &commandLine, QObject *parent)
    : QObject(parent)
    , m_commandLine(commandLine)
    , m_settingsFile(commandLine.settings.isEmpty() ? defaultSettingsFile() : commandLine.settings)
{
}

WindowRun::~WindowRun() = default;

QString WindowRun::defaultSettingsFile()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Corvale/corvale-monitor.xui"));
}

bool WindowRun::prepare()
{
    FileSource::Options options = m_commandLine.file;
    const bool picture = m_commandLine.task == CommandLine::Task::Screenshot;
    SourceFactory factory(m_clock, options);
    std::unique_ptr<Source> source = factory.make(m_commandLine.source);
    if (!source) {
        complain(factory.errorString());
        m_exitCode = ExitUsage;
        return false;
    }
    m_session = std::make_unique<Session>(m_clock, std::move(source));
    m_session->setRange(m_commandLine.rangeLow, m_commandLine.rangeHigh);
    QString error;
    if (!m_commandLine.record.path.isEmpty()
        && !m_session->startRecording(m_commandLine.record, &error)) {
        complain(error);
        m_exitCode = ExitOutputFailed;
        return false;
    }
    QDir().mkpath(QFileInfo(m_settingsFile).absolutePath());
    m_window = std::make_unique<MonitorWindow>(*m_session, m_settingsFile);
    if (m_commandLine.size.isValid())
        m_window->resize(m_commandLine.size);
    if (!picture)
        m_window->showHint(hint());
    if (!m_commandLine.view.isEmpty())
        connect(m_session.get(), &Session::streamStarted, this, [this] {
            if (!m_window->views().showView(m_commandLine.view))
                complain(tr("this source has nothing for the view %1").arg(m_commandLine.view));
        });
    return true;
}

QString WindowRun::hint() const
{
    const QString what = m_session->source().isSimulated()
        ? tr("This beam is simulated.")
        : tr("This is %1.").arg(m_session->source().description());
    return what
        + tr(" For a real source, start corvale-monitor with a recording (PATH), an instrument "
             "(tcp://HOST:PORT, serial:DEVICE) or - for standard input; --help tells more.");
}

int WindowRun::run()
{
    if (!m_window && !prepare())
        return m_exitCode;
    TerminationSignal termination;
    connect(&termination, &TerminationSignal::raised, m_window.get(), &QWidget::close);
    if (m_commandLine.task == CommandLine::Task::Screenshot)
        connect(&m_clock, &Clock::tick, this, &WindowRun::checkPicture);
    m_window->show();
    m_session->start();
    const int code = QApplication::exec();
    m_session->stopRecording();
    return m_exitCode != ExitGood ? m_exitCode : code;
}

bool WindowRun::isPictureDue() const
{
    const StreamStatistics &statistics = m_session->statistics();
    const Source::State state = m_session->source().state();
    if (state == Source::State::Finished || state == Source::State::Failed)
        return true;
    if (m_commandLine.afterReadings > 0)
        return statistics.readings() >= m_commandLine.afterReadings;
    const double wanted =
        m_commandLine.afterSeconds > 0.0 ? m_commandLine.afterSeconds : usualPictureTime;
    return statistics.readings() > 1 && statistics.lastTime() - statistics.firstTime() >= wanted;
}

void WindowRun::checkPicture()
{
    const double now = m_clock.seconds();
    const Source::State state = m_session->source().state();
    if (m_session->statistics().readings() == 0 && now > patience) {
        complain(tr("no readings came within %1 s").arg(patience));
        m_exitCode = ExitSourceLost;
        QApplication::quit();
        return;
    }
    if (!isPictureDue())
        return;
    if (m_dueSince < 0.0) {
        m_dueSince = now;
        if (state == Source::State::Running)
            m_session->setPaused(false);
    }
    const bool settled = now - m_dueSince >= settlingTime;
    if (settled && (m_window->views().hasDrawn() || now - m_dueSince > patience))
        takePicture();
}

void WindowRun::takePicture()
{
    QString error;
    const Source &source = m_session->source();
    if (!m_window->views().hasDrawn()) {
        complain(source.state() == Source::State::Failed ? source.stateText()
                                                         : tr("there is nothing to draw"));
        m_exitCode = source.state() == Source::State::Failed ? ExitSourceLost : ExitBadData;
    } else if (!PictureExport::save(m_window.get(), m_commandLine.output, &error)) {
        complain(error);
        m_exitCode = ExitOutputFailed;
    }
    QApplication::exit(m_exitCode);
}

void WindowRun::complain(const QString &text) const
{
    std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(text));
}

} // namespace Monitor
