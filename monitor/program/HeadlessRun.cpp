// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/HeadlessRun.h"

#include "monitor/core/LogTail.h"
#include "monitor/core/LoopWatch.h"
#include "monitor/core/RunReport.h"
#include "monitor/input/SpotFile.h"
#include "monitor/program/RepairRun.h"
#include "monitor/program/TerminationSignal.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/ProfileFits.h"
#include "monitor/statistics/StatisticsReport.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/WindowSettings.h"

#include <QEventLoop>

#include <cstdio>

namespace Monitor {

namespace {

bool print(const QByteArray &text)
{
    const bool written = std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout)
        == std::size_t(text.size());
    return std::fflush(stdout) == 0 && written;
}

} // namespace

HeadlessRun::HeadlessRun(const CommandLine &commandLine, QObject *parent)
    : QObject(parent)
    , m_commandLine(commandLine)
    , m_limit(commandLine.afterReadings, commandLine.afterSeconds)
    , m_computed(commandLine.computed)
{
}

HeadlessRun::~HeadlessRun() = default;

bool HeadlessRun::openSource()
{
    FileSource::Options options = m_commandLine.file;
    options.speed = 0.0; // there is no window that a person watches
    SourceFactory factory(m_clock, options);
    m_source = factory.make(m_commandLine.source);
    if (!m_source) {
        complain(factory.errorString());
        m_exitCode = ExitUsage;
        return false;
    }
    m_source->setReconnecting(false);
    connect(m_source.get(), &Source::streamStarted, this, &HeadlessRun::takeHeader);
    connect(m_source.get(), &Source::readingsArrived, this, &HeadlessRun::takeReadings);
    connect(m_source.get(), &Source::stateChanged, this, &HeadlessRun::sourceStateChanged);
    connect(m_source.get(), &Source::noted, this, &HeadlessRun::complain);
    if (m_commandLine.task == CommandLine::Task::Check)
        connect(m_source.get(), &Source::lineRefused, this, [](const RefusedLine &line) {
            print(line.text().toUtf8() + '\n');
        });
    return true;
}

bool HeadlessRun::openOutput()
{
    Recorder::Options options = m_commandLine.record;
    if (m_commandLine.task == CommandLine::Task::Convert)
        options.path = m_commandLine.output;
    if (options.path.isEmpty())
        return true;
    if (m_source->readsFrom(options.path)) {
        complain(
            tr("%1 exists already and is the source; write to another file").arg(options.path));
        m_exitCode = ExitOutputFailed;
        return false;
    }
    options.source = m_source->description();
    options.datesArrival = m_source->isLive();
    m_recorder = std::make_unique<Recorder>(m_clock, options);
    connect(m_recorder.get(), &Recorder::failed, this, [this](const QString &text) {
        complain(text);
        m_exitCode = ExitOutputFailed;
        leave();
    });
    connect(m_recorder.get(), &Recorder::noted, this, &HeadlessRun::complain);
    if (options.compress)
        connect(m_recorder.get(), &Recorder::fileCompleted, this, [this](const QString &path) {
            m_compressor.add(path);
        });
    return m_recorder->start();
}

//! Reads the list of planned spots, if there is one to compare with.
bool HeadlessRun::openPlan()
{
    QString error;
    if (!m_commandLine.planned.isEmpty())
        m_plan = spotsFromFile(m_commandLine.planned, &error);
    if (error.isEmpty())
        return true;
    complain(error);
    m_exitCode = ExitBadData;
    return false;
}

//! Keeps spots that are compared with planned ones.
void HeadlessRun::keepSpots(const ReadingBlock &readings)
{
    const bool compared = m_spots.header.kind == StreamKind::Spots
        && (m_plan.size() > 0 || SpotErrors::isPlanned(m_spots.header));
    if (!compared || m_spotsCut)
        return;
    m_spots.readings.append(readings);
    m_spotsCut = m_spots.size() > SpotRows::most;
    if (m_spotsCut)
        complain(tr("there are more than %1 spots, which are not compared with the plan; compare "
                    "the fields one by one")
                     .arg(SpotRows::most));
}

//! Returns how the spots differ from the planned ones; nothing if there is nothing to compare.
std::optional<SpotErrors> HeadlessRun::spotErrors() const
{
    if (m_spots.size() == 0 || m_spotsCut || !m_spots.isUsable())
        return std::nullopt;
    return m_plan.size() > 0 ? SpotErrors::of(m_spots, m_plan) : SpotErrors::ofOneList(m_spots);
}

//! Says which of the former runs without a window have crashed.
void HeadlessRun::tellCrashes()
{
    for (const FormerRun &run : FormerRun::take(QString()))
        if (run.crashed.isValid())
            complain(
                tr("an earlier run crashed: %1. Its report is %2").arg(run.reason, run.report));
}

int HeadlessRun::run()
{
    tellCrashes();
    RunReport notes{QString()};
    notes.note(QStringLiteral("source"), m_commandLine.source);
    if (!openPlan() || !openSource() || !openOutput())
        return m_exitCode;
    TerminationSignal termination;
    connect(&termination, &TerminationSignal::raised, this, &HeadlessRun::leave);
    QEventLoop loop;
    connect(&m_clock, &Clock::tick, &loop, [&] {
        if (m_ended)
            loop.quit();
    });
    const LoopWatch watch(m_clock, 0.0);
    m_source->start();
    if (!m_ended)
        loop.exec();
    if (m_commandLine.diagnostics)
        complain(watch.summary());
    return report();
}

void HeadlessRun::takeHeader(const StreamHeader &told)
{
    StreamHeader header = told;
    if (!m_commandLine.detector.isEmpty()) {
        header.setDetector(m_commandLine.detector);
        if (!header.detectorFault.isEmpty())
            complain(tr("the detector is not used: %1. Choose another one with --detector FILE")
                         .arg(header.detectorFault));
    }
    m_detectorUnused = m_detectorUnused || !header.detectorFault.isEmpty();
    m_channelsLeftOut = m_channelsLeftOut || header.leftOutChannels > 0;
    if (m_statistics.readings() > 0)
        complain(tr("another acquisition begins; the statistics cover only the last one"));
    const QString fault = m_computed.begin(header);
    if (!fault.isEmpty()) {
        complain(fault);
        m_exitCode = m_exitCode == ExitGood ? ExitUsage : m_exitCode;
        leave();
    }
    m_gapsBefore += m_statistics.gaps();
    m_statistics.startStream(header);
    if (m_commandLine.task == CommandLine::Task::Statistics)
        m_leftOutCount = {}; // the statistics cover only the last acquisition
    m_spots.header = header;
    m_spots.readings.clear(header.valuesPerReading());
    if (m_recorder)
        m_recorder->startStream(header);
}

void HeadlessRun::takeReadings(const ReadingBlock &arrived)
{
    if (m_ended)
        return;
    const ReadingBlock &readings = m_computed.extended(m_limit.take(arrived));
    m_statistics.addReadings(readings);
    keepSpots(readings);
    if (m_commandLine.task != CommandLine::Task::Convert)
        m_leftOutCount.take(m_statistics.header(), readings);
    m_readings += readings.size();
    if (m_recorder)
        m_recorder->addReadings(readings);
    if (m_limit.isReached())
        leave();
}

void HeadlessRun::sourceStateChanged(Source::State state, const QString &text)
{
    if (state == Source::State::Failed) {
        complain(text);
        if (!m_source->remedy().isEmpty())
            complain(m_source->remedy());
        m_exitCode = m_exitCode == ExitGood ? ExitSourceLost : m_exitCode;
    }
    if (state == Source::State::Failed || state == Source::State::Finished)
        leave();
}

void HeadlessRun::complain(const QString &text)
{
    LogTail::add(text);
    std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(text));
}

void HeadlessRun::leave()
{
    m_ended = true;
    m_clock.stayAwake();
}

void HeadlessRun::finishRecording()
{
    if (m_recorder && !m_recorder->finish() && m_exitCode == ExitGood)
        m_exitCode = ExitOutputFailed;
    m_compressor.finish();
    for (const QString &error : m_compressor.takeErrors())
        complain(error);
}

int HeadlessRun::report()
{
    finishRecording();
    m_readingsLeftOut = m_leftOutCount.count() > 0;
    const qint64 bad = m_source->counts().bad();
    if (m_commandLine.task == CommandLine::Task::Statistics && m_readings > 0)
        printStatistics();
    else if (m_commandLine.task == CommandLine::Task::Check) {
        print(tr("detector: %1\n").arg(m_statistics.header().detector.summary()).toUtf8());
        print(tr("%1 readings, %2 lines dropped, %3 gaps\n")
                  .arg(m_readings)
                  .arg(bad)
                  .arg(m_gapsBefore + m_statistics.gaps())
                  .toUtf8());
        if (m_leftOutCount.count() > 0)
            print(m_leftOutCount.text().toUtf8() + '\n');
        if (const auto *file = qobject_cast<FileSource *>(m_source.get()))
            m_isDamaged = printDamage(file->path(), m_commandLine.file.import);
    }
    if (m_exitCode != ExitGood)
        return m_exitCode;
    const QString why = m_source->emptyReason();
    if (m_readings == 0)
        complain(tr("%1 contains no readings").arg(m_source->description())
                 + (why.isEmpty() ? why : QStringLiteral(": ") + why));
    else if (bad > 0)
        complain(tr("%1: %2 lines could not be used; --check shows them")
                     .arg(m_source->description(), QString::number(bad)));
    const bool wrong = m_readings == 0 || bad > 0 || m_detectorUnused || m_channelsLeftOut
        || m_readingsLeftOut || m_isDamaged || m_spotsCut || planIsUnused();
    return wrong ? ExitBadData : ExitGood;
}

//! Says that there is nothing to compare with the plan, if there is one.
bool HeadlessRun::planIsUnused()
{
    const bool unused = m_plan.size() > 0 && !m_spotsCut && !spotErrors();
    if (unused)
        complain(tr("%1 is not compared with the plan: a list of spots has the columns x_mm, y_mm "
                    "and mu")
                     .arg(m_source->description()));
    return unused;
}

void HeadlessRun::printStatistics()
{
    StatisticsReport report;
    report.source = m_source->description();
    report.counts = m_source->counts();
    report.statistics = &m_statistics;
    report.fits = fitsOfLastReading(m_statistics, m_commandLine.fitChannels);
    // Without --settings, a report is the same for every user.
    const auto limits = m_commandLine.settings.isEmpty()
        ? Corvale_Qt::VerdictLimits()
        : keptOptions(WindowSettings(m_commandLine.settings)).verdictLimits;
    report.estimates = estimatesOfLastReading(m_statistics, m_commandLine.fitChannels, limits);
    applyVerdicts(report.estimates, report.fits);
    report.leftOut = m_leftOutCount;
    report.spotErrors = spotErrors();
    report.toleranceX = m_commandLine.toleranceX;
    report.toleranceY = m_commandLine.toleranceY;
    if (!print(m_commandLine.json ? report.json() : report.text()))
        m_exitCode = ExitOutputFailed;
}

} // namespace Monitor
