// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/HeadlessRun.h"

#include "monitor/program/TerminationSignal.h"
#include "monitor/sources/LineSource.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/ProfileFits.h"
#include "monitor/statistics/StatisticsReport.h"

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
    if (auto *lines = qobject_cast<LineSource *>(m_source.get()))
        lines->setReconnecting(false);
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
    m_recorder = std::make_unique<Recorder>(m_clock, options);
    connect(m_recorder.get(), &Recorder::failed, this, [this](const QString &text) {
        complain(text);
        m_exitCode = ExitOutputFailed;
        leave();
    });
    connect(m_recorder.get(), &Recorder::noted, this, &HeadlessRun::complain);
    return m_recorder->start();
}

int HeadlessRun::run()
{
    if (!openSource() || !openOutput())
        return m_exitCode;
    TerminationSignal termination;
    connect(&termination, &TerminationSignal::raised, this, &HeadlessRun::leave);
    QEventLoop loop;
    connect(&m_clock, &Clock::tick, &loop, [&] {
        if (m_ended)
            loop.quit();
    });
    m_source->start();
    if (!m_ended)
        loop.exec();
    return report();
}

void HeadlessRun::takeHeader(const StreamHeader &told)
{
    StreamHeader header = told;
    if (!m_commandLine.detector.isEmpty()) {
        header.setDetector(m_commandLine.detector);
        if (!header.detectorFault.isEmpty())
            complain(tr("the detector is not used: %1").arg(header.detectorFault));
    }
    m_detectorUnused = m_detectorUnused || !header.detectorFault.isEmpty();
    m_channelsLeftOut = m_channelsLeftOut || header.leftOutChannels > 0;
    if (m_statistics.readings() > 0)
        complain(tr("another acquisition begins; the statistics cover the last one only"));
    m_statistics.startStream(header);
    if (m_recorder)
        m_recorder->startStream(header);
}

void HeadlessRun::takeReadings(const ReadingBlock &arrived)
{
    if (m_ended)
        return;
    const ReadingBlock &readings = m_limit.take(arrived);
    m_statistics.addReadings(readings);
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
    std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(text));
}

void HeadlessRun::leave()
{
    m_ended = true;
}

int HeadlessRun::report()
{
    if (m_recorder && !m_recorder->finish() && m_exitCode == ExitGood)
        m_exitCode = ExitOutputFailed;
    const qint64 bad = m_source->counts().bad();
    if (m_commandLine.task == CommandLine::Task::Statistics && m_readings > 0)
        printStatistics();
    else if (m_commandLine.task == CommandLine::Task::Check) {
        print(tr("detector: %1\n").arg(m_statistics.header().detector.summary()).toUtf8());
        print(tr("%1 readings, %2 lines dropped, %3 gaps\n")
                  .arg(m_readings)
                  .arg(bad)
                  .arg(m_statistics.gaps())
                  .toUtf8());
    }
    if (m_exitCode != ExitGood)
        return m_exitCode;
    if (m_readings == 0)
        complain(tr("%1 contains no readings").arg(m_source->description()));
    else if (bad > 0)
        complain(tr("%1: %2 lines could not be used; --check shows them")
                     .arg(m_source->description())
                     .arg(bad));
    const bool wrong = m_readings == 0 || bad > 0 || m_detectorUnused || m_channelsLeftOut;
    return wrong ? ExitBadData : ExitGood;
}

void HeadlessRun::printStatistics()
{
    StatisticsReport report;
    report.source = m_source->description();
    report.counts = m_source->counts();
    report.statistics = &m_statistics;
    report.fits = fitsOfLastReading(m_statistics);
    report.estimates = estimatesOfLastReading(m_statistics);
    if (!print(m_commandLine.json ? report.json() : report.text()))
        m_exitCode = ExitOutputFailed;
}

} // namespace Monitor
