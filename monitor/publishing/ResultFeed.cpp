// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/publishing/ResultFeed.h"

#include "monitor/core/Clock.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/StreamStatistics.h"

#include <cmath>

namespace Monitor {

using namespace CorvaleMonitor;

namespace {

constexpr double never = -std::numeric_limits<double>::infinity();
constexpr double secondsEach = 1e-3; // millisecond

SourceState published(Source::State state)
{
    switch (state) {
    case Source::State::Running:
        return SourceState::Live;
    case Source::State::Retrying:
        return SourceState::Lost;
    case Source::State::Finished:
        return SourceState::Finished;
    case Source::State::Failed:
        return SourceState::Failed;
    default:
        return SourceState::Connecting;
    }
}

ResultValidity published(Corvale_Qt::BeamValidity validity)
{
    using Corvale_Qt::BeamValidity;
    return validity == BeamValidity::Valid  ? ResultValidity::Valid
        : validity == BeamValidity::FitPoor ? ResultValidity::Poor
                                            : ResultValidity::Invalid;
}

PlaneResult published(const PlaneEstimate &plane)
{
    PlaneResult result;
    if (plane.estimate.isOk()) {
        result.position = plane.estimate.position.value;
        result.sigma = plane.estimate.sigma.value;
        result.integral = integralOf(plane.estimate);
        result.reducedChiSquare = plane.estimate.quality.reducedChiSquare;
    }
    result.validity = published(plane.verdict.validity);
    const QStringList told = plane.verdict.reasons + plane.verdict.notes;
    result.verdict = told.isEmpty()
        ? plane.verdict.text()
        : plane.verdict.text() + QStringLiteral(": ") + told.join(QStringLiteral("; "));
    return result;
}

ChannelState stateOf(Corvale_Qt::LimitState state, bool isOverRange)
{
    if (isOverRange)
        return ChannelState::OverRange;
    if (Corvale_Qt::isAlarm(state))
        return ChannelState::Alarm;
    return state == Corvale_Qt::LimitState::Normal ? ChannelState::Normal : ChannelState::Warning;
}

QVector<SourceChannel> channelsOf(const StreamHeader &header)
{
    QVector<SourceChannel> channels;
    for (int i = 0; i < header.channels.size(); ++i) {
        const Corvale_Qt::ChannelLimits limits = header.limitsOf(i);
        channels.append({header.channels[i].name,
                         header.channels[i].unit,
                         limits.lowAlarm,
                         limits.lowWarning,
                         limits.highWarning,
                         limits.highAlarm});
    }
    return channels;
}

} // namespace

ResultFeed::ResultFeed(Clock &clock,
                       std::unique_ptr<Publication> publication,
                       ResultInput input,
                       QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_publication(std::move(publication))
    , m_input(std::move(input))
    , m_toldAt(never)
{
    connect(&clock, &Clock::tick, this, &ResultFeed::tick);
}

ResultFeed::~ResultFeed() = default;

void ResultFeed::setVerdictLimits(const Corvale_Qt::VerdictLimits &limits)
{
    m_verdictLimits = limits;
    m_mustTell = true; // the newest reading is judged anew
}

void ResultFeed::tick()
{
    noteLoss();
    if (m_clock.seconds() - m_toldAt < interval)
        return;
    if (!isNews())
        return;
    m_clock.stayAwake(); // clients are told at once, even if nobody sees the window
    flush();
}

//! Remembers after which reading the source was lost: it stays the newest one until another comes, even if the source is there again.
void ResultFeed::noteLoss()
{
    const qint64 readings = m_input.statistics().readings();
    const SourceState state = published(m_input.source().state());
    if (state != SourceState::Live && state != SourceState::Finished)
        m_readingsAtLoss = readings;
    else if (readings != m_readingsAtLoss)
        m_readingsAtLoss = -1;
}

//! Returns whether readings are overdue: the source is stale, or was lost after the newest of them.
bool ResultFeed::isOverdue() const
{
    return m_input.isStale() || m_readingsAtLoss >= 0;
}

//! Returns whether the last results are those of the newest reading. Each acquisition counts its readings from 0.
bool ResultFeed::isOfToldReading() const
{
    const StreamStatistics &statistics = m_input.statistics();
    return statistics.readings() == m_told.readings
        && statistics.acquisition() == m_toldAcquisition;
}

//! Returns whether something has changed since the last results.
bool ResultFeed::isNews() const
{
    const Source &source = m_input.source();
    return m_mustTell || !isOfToldReading() || published(source.state()) != m_told.state
        || source.stateText() != m_told.stateText || isOverdue() != m_told.isOverdue;
}

void ResultFeed::flush()
{
    noteLoss();
    m_toldAt = m_clock.seconds();
    const Source &source = m_input.source();
    const StreamStatistics &statistics = m_input.statistics();
    ResultStream stream;
    stream.source = source.description();
    const StreamHeader &header = statistics.header();
    // The integral of densities has another unit, which no text states.
    stream.integralUnit = header.detector.description().density ? QString() : header.readingUnit();
    Results results;
    results.time = timeOfNewest();
    results.readings = statistics.readings();
    results.rate = m_input.rate();
    results.state = published(source.state());
    results.stateText = source.stateText();
    results.isOverdue = isOverdue();
    addPlanes(&results, &stream);
    addValues(&results);
    tellStream(stream);
    m_publication->publish(results);
    m_told = results;
    m_toldAcquisition = statistics.acquisition();
    m_mustTell = false;
}

//! Fits the planes of the newest reading. The only profile of channels that nothing places is published as x.
void ResultFeed::addPlanes(Results *results, ResultStream *stream) const
{
    for (const PlaneEstimate &plane :
         fittedPlanes(m_input.statistics(), m_channelsAreProfile, m_verdictLimits)) {
        const bool isY = plane.plane == QLatin1String("y");
        (isY ? results->y : results->x) = published(plane);
        (isY ? stream->unitY : stream->unitX) = plane.unit;
    }
}

//! Takes the newest value of each channel, and how it stands to the limits; of frames, those of the numbers computed from them.
void ResultFeed::addValues(Results *results) const
{
    const StreamStatistics &statistics = m_input.statistics();
    const StreamHeader &header = statistics.header();
    const int count = header.channels.size();
    results->values.fill(std::numeric_limits<double>::quiet_NaN(), count);
    results->states.fill(ChannelState::Normal, count);
    const double *newest = statistics.lastNumbers();
    for (int i = 0; newest && i < count; ++i) {
        results->values[i] = newest[i];
        const bool isMeasured = i < header.measured() && !header.hasFrames();
        const bool isOverRange = isMeasured && header.hasRange()
            && (newest[i] < header.rangeLow || newest[i] > header.rangeHigh);
        results->states[i] = stateOf(statistics.limitLog().state(i), isOverRange);
    }
}

//! Returns the time of the newest reading as the stream states it, or that of its arrival. A list states none.
double ResultFeed::timeOfNewest() const
{
    const StreamStatistics &statistics = m_input.statistics();
    if (statistics.readings() == 0)
        return std::numeric_limits<double>::quiet_NaN();
    const double now = secondsEach * double(m_clock.wallTime().toMSecsSinceEpoch());
    const double arrival = isOfToldReading() ? m_told.time : now;
    if (statistics.header().isList())
        return arrival;
    const std::optional<double> origin = statistics.header().statedOrigin(statistics.firstTime());
    return origin ? *origin + statistics.lastTime() : arrival;
}

//! Tells the publication what follows if it is something else than before.
void ResultFeed::tellStream(const ResultStream &stream)
{
    const StreamHeader &header = m_input.statistics().header();
    const bool isSame = m_hasBegun && header.channels == m_header.channels
        && header.limits == m_header.limits && stream.source == m_stream.source
        && stream.unitX == m_stream.unitX && stream.unitY == m_stream.unitY
        && stream.integralUnit == m_stream.integralUnit;
    if (isSame)
        return;
    m_hasBegun = true;
    m_header = header;
    m_stream = stream;
    m_stream.channels = channelsOf(header);
    m_publication->begin(m_stream);
}

} // namespace Monitor
