// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/HeadlessFeed.h"

#include "monitor/core/Clock.h"
#include "monitor/core/LogTail.h"
#include "monitor/core/NumberText.h"
#include "monitor/core/Text.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/program/RepairRun.h"
#include "monitor/recording/RecordingRepair.h"
#include "monitor/recording/RecordingSegments.h"
#include "monitor/sources/PlayClock.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/ProfileFits.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/WindowSettings.h"

#include <cstdio>

namespace Monitor {

HeadlessFeed::HeadlessFeed(const CommandLine &commandLine,
                           const NamedAddress &source,
                           Clock &clock,
                           const SpotRows &plan,
                           SegmentCompressor &compressor,
                           QObject *parent)
    : QObject(parent)
    , m_commandLine(commandLine)
    , m_name(source.name)
    , m_address(source.address)
    , m_clock(clock)
    , m_plan(plan)
    , m_compressor(compressor)
    , m_limit(commandLine.afterReadings, commandLine.afterSeconds)
    , m_computed(commandLine.computed)
{
}

HeadlessFeed::~HeadlessFeed() = default;

bool HeadlessFeed::openSource()
{
    FileSource::Options options = m_commandLine.file;
    const bool isForReaders = m_commandLine.task == CommandLine::Task::Headless;
    if (!isForReaders)
        options.speed = 0.0; // there is no window that a person watches
    SourceFactory factory(m_clock, options);
    m_source = factory.make(m_address);
    if (!m_source) {
        complain(factory.errorString());
        return false;
    }
    m_source->setReconnecting(isForReaders);
    connect(m_source.get(), &Source::streamStarted, this, &HeadlessFeed::takeHeader);
    connect(m_source.get(), &Source::readingsArrived, this, &HeadlessFeed::takeReadings);
    connect(m_source.get(), &Source::stateChanged, this, &HeadlessFeed::sourceStateChanged);
    connect(&m_clock, &Clock::tick, this, &HeadlessFeed::tellConnection);
    connect(m_source.get(), &Source::noted, this, [this](const QString &text) {
        complain(text);
        if (m_output)
            m_output->addEvent(text);
    });
    if (m_commandLine.task == CommandLine::Task::Check)
        connect(m_source.get(), &Source::lineRefused, this, [this](const RefusedLine &line) {
            Q_EMIT refused(line.text());
        });
    return true;
}

void HeadlessFeed::publish(std::unique_ptr<CorvaleMonitor::Publication> publication)
{
    ResultInput input;
    input.source = [this]() -> const Source & {
        return *m_source;
    };
    input.statistics = [this]() -> const StreamStatistics & {
        return m_statistics;
    };
    input.rate = [this] {
        return m_activity.rate(m_clock.seconds());
    };
    input.isStale = [this] {
        return m_source->state() != Source::State::Finished && !m_source->isHolding()
            && m_activity.isStale(m_clock.seconds());
    };
    m_results = std::make_unique<ResultFeed>(m_clock, std::move(publication), input);
    m_results->setChannelsAreProfile(m_commandLine.fitChannels);
    m_results->setVerdictLimits(verdictLimits());
}

void HeadlessFeed::finishPublishing()
{
    if (m_results)
        m_results->flush();
}

//! Returns whether the run goes on without readings, so that others can read the last results.
bool HeadlessFeed::staysAfterEnd() const
{
    return m_results && m_commandLine.task == CommandLine::Task::Headless;
}

//! Returns the limits of verdicts. Without --settings, a report is the same for every user.
Corvale_Qt::VerdictLimits HeadlessFeed::verdictLimits() const
{
    return m_commandLine.settings.isEmpty()
        ? Corvale_Qt::VerdictLimits()
        : keptOptions(WindowSettings(m_commandLine.settings)).verdictLimits;
}

//! Returns the parameters of the fits, as verdictLimits() returns the limits.
FitParameters HeadlessFeed::fitParameters() const
{
    return m_commandLine.settings.isEmpty()
        ? FitParameters()
        : keptFitParameters(WindowSettings(m_commandLine.settings));
}

Recorder::Options HeadlessFeed::recorderOptions() const
{
    Recorder::Options options = m_commandLine.record;
    if (m_commandLine.task == CommandLine::Task::Convert)
        options.path = m_commandLine.output;
    options.label = m_name;
    options.source = m_source->description();
    options.datesArrival = m_source->isLive();
    return options;
}

bool HeadlessFeed::openOutput()
{
    Recorder::Options options = recorderOptions();
    if (options.path.isEmpty())
        return true;
    const bool asHdf5 =
        m_commandLine.task == CommandLine::Task::Convert && isNexusName(options.path);
    if (asHdf5)
        options.path = outputPath();
    m_output = std::make_unique<HeadlessOutput>(m_clock, m_compressor);
    connect(m_output.get(), &HeadlessOutput::noted, this, &HeadlessFeed::complain);
    connect(m_output.get(), &HeadlessOutput::failed, this, [this](const QString &text) {
        complain(text);
        m_exitCode = ExitOutputFailed;
        Q_EMIT outputFailed();
    });
    return m_output->start(options, asHdf5);
}

QString HeadlessFeed::outputPath() const
{
    const Recorder::Options options = recorderOptions();
    return options.path.isEmpty() ? QString() : RecordingNames(options.path, m_name).path();
}

//! Keeps spots that are compared with planned ones.
void HeadlessFeed::keepSpots(const ReadingBlock &readings)
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
std::optional<SpotErrors> HeadlessFeed::spotErrors() const
{
    if (m_spots.size() == 0 || m_spotsCut || !m_spots.isUsable())
        return std::nullopt;
    return m_plan.size() > 0 ? SpotErrors::of(m_spots, m_plan) : SpotErrors::ofOneList(m_spots);
}

void HeadlessFeed::takeHeader(const StreamHeader &told)
{
    StreamHeader header = told;
    m_limit.setPace(PlayClock::paceOf(header.hasTimes));
    if (!m_commandLine.detector.isEmpty()) {
        header.setDetector(m_commandLine.detector);
        if (!header.detectorFault.isEmpty())
            complain(tr("the detector is not used: %1. Choose another one with --detector FILE")
                         .arg(header.detectorFault.logged()));
    }
    m_detectorUnused = m_detectorUnused || !header.detectorFault.isEmpty();
    m_channelsLeftOut = m_channelsLeftOut || header.leftOutChannels > 0;
    if (m_statistics.readings() > 0 && m_commandLine.task != CommandLine::Task::Headless)
        complain(tr("another acquisition begins; the statistics cover only the last one"));
    const LoggedText fault = m_computed.begin(header);
    if (!fault.isEmpty()) {
        complain(fault.logged());
        m_exitCode = m_exitCode == ExitGood ? ExitUsage : m_exitCode;
        end();
    }
    m_gapsBefore += m_statistics.gaps();
    noteLongestGap();
    m_statistics.startStream(header);
    m_activity.reset();
    if (m_commandLine.task == CommandLine::Task::Statistics)
        m_leftOutCount = {}; // the statistics cover only the last acquisition
    m_spots.header = header;
    m_spots.readings.clear(header.valuesPerReading());
    if (m_output)
        m_output->startStream(header);
}

void HeadlessFeed::takeReadings(const ReadingBlock &arrived)
{
    if (m_ended)
        return;
    const ReadingBlock &readings = m_computed.extended(m_limit.take(arrived));
    m_activity.noteArrival(m_clock.seconds(), arrived.size());
    m_statistics.addReadings(readings);
    keepSpots(readings);
    if (m_commandLine.task != CommandLine::Task::Convert)
        m_leftOutCount.take(m_statistics.header(), readings);
    m_readings += readings.size();
    if (m_output)
        m_output->addReadings(readings);
    if (m_limit.isReached())
        end();
}

/*! Says on stderr that a source is away, at most once a minute since some peers connect for each reading, and that it is back
    if it was said to be away. */
void HeadlessFeed::tellConnection()
{
    constexpr double patience = 60.0; // s
    const Source::State state = m_source->state();
    const bool isBack = state == Source::State::Running;
    const bool isAway =
        state == Source::State::Retrying || (state == Source::State::Connecting && m_wasConnected);
    m_wasConnected = m_wasConnected || isBack;
    if (m_isToldAway && isBack) {
        m_isToldAway = false;
        complain(tr("%1 is connected").arg(m_source->description()));
    } else if (!m_isToldAway && isAway && m_clock.seconds() - m_toldAwayAt >= patience) {
        m_isToldAway = true;
        m_toldAwayAt = m_clock.seconds();
        complain(m_source->stateText());
    }
}

void HeadlessFeed::sourceStateChanged(Source::State state, const QString &text)
{
    tellConnection();
    if (state == Source::State::Failed) {
        complain(text);
        if (!m_source->remedy().isEmpty())
            complain(m_source->remedy());
        m_exitCode = m_exitCode == ExitGood ? ExitSourceLost : m_exitCode;
    }
    const bool isOver = state == Source::State::Finished && !staysAfterEnd();
    if (state == Source::State::Failed || isOver)
        end();
}

void HeadlessFeed::complain(const QString &text) const
{
    const QString line = m_name.isEmpty() ? text : m_name + QStringLiteral(": ") + text;
    LogTail::add(line);
    std::fprintf(stderr, "corvale-monitor: %s\n", qPrintable(line));
}

void HeadlessFeed::end()
{
    m_ended = true;
    m_clock.stayAwake();
}

void HeadlessFeed::interrupt()
{
    m_isInterrupted = m_isInterrupted || !m_ended;
    end();
}

void HeadlessFeed::finishRecording()
{
    if (!m_output)
        return;
    // A stream that is ended is complete as far as it came; a file that is not read to its end is not.
    const bool isWhole = !m_isInterrupted || m_source->isLive();
    if (!isWhole && m_output->isKeptWholeOnly()) {
        complain(tr("the conversion was interrupted; %1 was not written").arg(outputPath()));
        m_exitCode = ExitOutputFailed;
    }
    if (!m_output->finish(isWhole) && m_exitCode == ExitGood)
        m_exitCode = ExitOutputFailed;
}

QString HeadlessFeed::progressText() const
{
    constexpr double percent = 100.0;
    const auto *file = qobject_cast<FileSource *>(m_source.get());
    const QString readings = Text::countedInEnglish("%n reading(s)", nullptr, m_readings);
    return file
        ? tr("%1 % of %2, %3")
              .arg(QString::number(int(file->progress() * percent)), file->description(), readings)
        : tr("%1 of %2").arg(readings, m_source->description());
}

std::optional<StatisticsReport> HeadlessFeed::statistics() const
{
    if (m_readings == 0)
        return std::nullopt;
    StatisticsReport report;
    report.source = m_source->description();
    report.counts = m_source->counts();
    report.statistics = &m_statistics;
    const FitParameters parameters = fitParameters();
    report.fits = fitsOfLastReading(m_statistics, m_commandLine.fitChannels, parameters);
    report.estimates = estimatesOfLastReading(m_statistics,
                                              m_commandLine.fitChannels,
                                              verdictLimits(),
                                              parameters);
    applyVerdicts(report.estimates, report.fits);
    report.leftOut = m_leftOutCount;
    report.spotErrors = spotErrors();
    report.toleranceX = m_commandLine.toleranceX;
    report.toleranceY = m_commandLine.toleranceY;
    return report;
}

//! Keeps the longest gap of the present acquisition, if none before it had a longer one.
void HeadlessFeed::noteLongestGap()
{
    const StreamStatistics::Gap &gap = m_statistics.longestGap();
    if (gap.length() <= m_longestGap.length())
        return;
    constexpr double millisecondsPerSecond = 1000.0;
    m_longestGap = gap;
    m_longestGapBegin = StreamHeader::countsFrom1970(gap.begin)
        ? QDateTime::fromMSecsSinceEpoch(qint64(gap.begin * millisecondsPerSecond), Qt::UTC)
        : startTime().toUTC().addMSecs(qint64(gap.begin * millisecondsPerSecond));
}

QString HeadlessFeed::longestGapText() const
{
    const QString text = tr("the longest gap lasts %1 s, after %2 s")
                             .arg(numberText(m_longestGap.length(), 6))
                             .arg(m_longestGap.begin, 0, 'g', 15);
    return m_longestGapBegin.isValid()
        ? tr("%1 (%2)").arg(text, m_longestGapBegin.toString(Qt::ISODateWithMs))
        : text;
}

QStringList HeadlessFeed::check()
{
    noteLongestGap();
    QStringList lines{
        tr("detector: %1").arg(m_statistics.header().detector.summary()),
        tr("%1, %2 dropped, %3")
            .arg(Text::countedInEnglish("%n reading(s)", nullptr, m_readings),
                 Text::countedInEnglish("%n line(s)", nullptr, m_source->counts().bad()),
                 Text::countedInEnglish("%n gap(s)", nullptr, m_gapsBefore + m_statistics.gaps()))};
    if (m_longestGap.length() > 0.0)
        lines += longestGapText();
    if (m_leftOutCount.count() > 0)
        lines += m_leftOutCount.text();
    const auto *file = qobject_cast<FileSource *>(m_source.get());
    if (file && !isHdf5File(file->path())) {
        RecordingDamage damage;
        QString error;
        if (examineRecording(file->path(), m_commandLine.file.import, &damage, &error)) {
            lines += damageLines(damage);
            m_isDamaged = damage.isInside;
        }
        const QStringList missing = missingSegments(file->path());
        if (!missing.isEmpty())
            lines += tr("missing of this recording: %1").arg(missing.join(QStringLiteral(", ")));
        m_lacksFiles = !missing.isEmpty();
    }
    return lines;
}

ExitCode HeadlessFeed::judge() const
{
    if (m_exitCode != ExitGood)
        return m_exitCode;
    const QString why = m_source->emptyReason();
    const qint64 bad = m_source->counts().bad();
    if (m_readings == 0)
        complain(tr("%1 contains no readings").arg(m_source->description())
                 + (why.isEmpty() ? why : QStringLiteral(": ") + why));
    else if (bad > 0)
        complain(Text::countedInEnglish("%1: %n line(s) could not be used; --check shows it/them",
                                        nullptr,
                                        bad)
                     .arg(m_source->description()));
    if (m_lacksFiles)
        complain(tr("%1: other files of this recording are missing").arg(m_source->description()));
    const bool wrong = m_lacksFiles || m_readings == 0 || bad > 0 || m_detectorUnused
        || m_channelsLeftOut || m_leftOutCount.count() > 0 || m_isDamaged || m_spotsCut
        || planIsUnused();
    return wrong ? ExitBadData : ExitGood;
}

//! Says that there is nothing to compare with the plan, if there is one.
bool HeadlessFeed::planIsUnused() const
{
    const bool unused = m_plan.size() > 0 && !m_spotsCut && !spotErrors();
    if (unused)
        complain(tr("%1 is not compared with the plan: a list of spots has the columns x_mm, y_mm "
                    "and mu")
                     .arg(m_source->description()));
    return unused;
}

} // namespace Monitor
