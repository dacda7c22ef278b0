// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/Session.h"

#include "monitor/core/Clock.h"
#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"
#include "monitor/nexus/NexusSegments.h"
#include "monitor/sources/PlayClock.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Monitor {

namespace {

constexpr double shortestShowInterval = 0.04; // s
constexpr double longestPaintingInterval = 0.2; // s
constexpr double mostPainting = 0.4; // of the time
//! The model does not hold more readings than this, so that more need not wait.
constexpr int mostToShow = 100000;
constexpr int headersShownASecond = 5;
constexpr int eventsShownASecond = 5;
//! A recording keeps more events than the log, but not any number of them.
constexpr int eventsRecordedASecond = 100;

} // namespace

Session::Session(Clock &clock, std::unique_ptr<Source> source, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_source(std::move(source))
    , m_shownHeaders(headersShownASecond)
    , m_showInterval(shortestShowInterval)
    , m_shownEvents(eventsShownASecond)
    , m_recordedEvents(eventsRecordedASecond)
{
    listenToSource();
    connect(&clock, &Clock::tick, this, &Session::tick);
    connect(&m_alarms, &Alarms::noted, this, &Session::takeEvent);
}

Session::~Session() = default;

void Session::start()
{
    m_source->start();
}

void Session::listenToSource()
{
    connect(m_source.get(), &Source::streamStarted, this, &Session::takeHeader);
    connect(m_source.get(), &Source::jumped, this, &Session::takeJump);
    connect(m_source.get(), &Source::readingsArrived, this, &Session::takeReadings);
    connect(m_source.get(), &Source::noted, this, &Session::takeEvent);
    connect(m_source.get(), &Source::lineRefused, this, &Session::lineRefused);
    connect(m_source.get(), &Source::stateChanged, this, [this](Source::State state) {
        if (state == Source::State::Finished || state == Source::State::Failed)
            showWaiting();
    });
    connect(m_source.get(), &Source::stateChanged, this, &Session::sourceStateChanged);
}

void Session::replaceSource(std::unique_ptr<Source> source)
{
    tellHeldBack(std::numeric_limits<double>::infinity());
    stopRecording();
    setPaused(false);
    m_source->disconnect(this);
    Q_EMIT sourceClosing();
    m_source = std::move(source);
    forgetStream();
    listenToSource();
    Q_EMIT sourceReplaced();
    start();
}

//! Forgets all that came from the source so far; limits and detector of the operator stay.
void Session::forgetStream()
{
    m_told = StreamHeader();
    m_headerWaits = false;
    m_toShow.clear(0);
    m_frame.clear();
    m_leftOutTold = false;
    m_statistics.startStream(StreamHeader());
    m_gapsBefore = 0;
    m_timeline.begin(StreamHeader());
    m_shownAt = -std::numeric_limits<double>::infinity(); // what comes is to be seen at once
    m_streamLimits.clear();
    m_alarms.startStream(StreamHeader());
    m_activity.reset();
    m_limit = ReadingLimit();
    m_model.startStream(StreamHeader());
    if (m_stale) {
        m_stale = false;
        Q_EMIT staleChanged(false);
    }
}

void Session::setRange(double low, double high)
{
    m_rangeLow = low;
    m_rangeHigh = high;
}

void Session::setComputedChannels(const QVector<Corvale_Qt::ComputedChannel> &channels)
{
    m_computedChannels = channels;
    const auto former = std::exchange(m_computed, std::make_unique<ComputedStream>(channels));
    const bool canCompute = m_told.kind == StreamKind::Channels && !m_told.hasFrames();
    if (!m_told.channels.isEmpty() && canCompute)
        showAnew(*former);
}

//! Goes on with the present stream under another header, and computes the readings that are shown anew.
void Session::showAnew(const ComputedStream &former)
{
    setPaused(false);
    showWaiting();
    const StreamHeader header = completed(m_told);
    countAnew(header);
    m_timeline.setHeader(header);
    m_toShow.clear(header.channels.size());
    const int measured = header.measured();
    const ReadingBlock shown = m_model.shownReadings().first(measured);
    m_model.goOnWith(header, m_computed->formerColumns(former, measured));
    m_model.setComputed(m_computed->extended(shown));
    Q_EMIT streamStarted(header);
}

void Session::takeHeader(const StreamHeader &told)
{
    m_told = told;
    m_limit.setPace(PlayClock::paceOf(told.hasTimes));
    const StreamHeader header = completed(told);
    countAnew(header);
    if (!m_headerWaits)
        showWaiting();
    m_frame.clear();
    m_leftOutTold = false;
    if (takeNewPart(header))
        return;
    m_toShow.clear(header.channels.size());
    m_headerWaits = true;
    if (m_shownHeaders.admits(m_clock.seconds()))
        showHeader();
}

//! Returns the header of a stream with the range, the detector, the computed channels and the limits of the operator.
StreamHeader Session::completed(const StreamHeader &told)
{
    StreamHeader header = told;
    if (m_rangeLow < m_rangeHigh) {
        header.rangeLow = m_rangeLow;
        header.rangeHigh = m_rangeHigh;
    }
    if (!m_detector.isEmpty()) {
        header.setDetector(m_detector);
        if (!header.detectorFault.isEmpty())
            takeEvent(
                QStringLiteral("WARNING the detector is not used: %1. Choose another one in File > "
                               "Settings... or with --detector FILE")
                    .arg(header.detectorFault.logged()));
    }
    m_computedFault = m_computed->begin(header);
    if (!m_computedFault.isEmpty())
        takeEvent(QStringLiteral("ERROR %1").arg(m_computedFault.logged()));
    m_streamLimits = header.limits;
    applyLimits(&header);
    return header;
}

//! Begins statistics, alarms and recording of a stream.
void Session::countAnew(const StreamHeader &header)
{
    m_gapsBefore += m_statistics.gaps();
    m_statistics.startStream(header);
    m_alarms.startStream(header);
    m_activity.reset();
    if (m_recorder)
        m_recorder->startStream(header);
}

//! Gives the channels the limits that were chosen for their names.
void Session::applyLimits(StreamHeader *header) const
{
    for (auto limits = m_chosenLimits.begin(); limits != m_chosenLimits.end(); ++limits)
        header->setLimits(limits.key(), limits.value());
}

void Session::setLimits(const NamedLimits &limits)
{
    m_chosenLimits = limits;
    StreamHeader header = m_statistics.header();
    header.limits = m_streamLimits;
    applyLimits(&header);
    header.limits.resize(header.channels.size()); // empty ones replace those that were there
    m_statistics.setLimits(header.limits);
    m_alarms.setHeader(header);
    m_alarms.update(m_statistics.limitLog());
    if (!m_headerWaits)
        m_model.setLimits(header.limits);
    Q_EMIT limitsChanged();
}

/*! Keeps what is shown if an instrument only started over, as after a reconnection: its readings go on in a new part of
    the time line. Returns false if the header begins something else. */
bool Session::takeNewPart(const StreamHeader &header)
{
    if (!m_source->isLive() || m_headerWaits || !m_timeline.goesOnWith(header)) {
        m_timeline.begin(header);
        return false;
    }
    ++m_gapsBefore;
    m_timeline.beginPart(header);
    return true;
}

//! Empties what is shown: the readings that follow are from elsewhere in the same acquisition.
void Session::takeJump()
{
    const StreamHeader header = m_statistics.header();
    m_statistics.startStream(header);
    m_alarms.startStream(header);
    m_timeline.begin(header);
    m_activity.reset();
    if (m_recorder)
        m_recorder->startStream(header);
    m_toShow.clear(header.channels.size());
    m_frame.clear();
    if (!m_headerWaits)
        m_model.Clear();
    m_shownAt = -std::numeric_limits<double>::infinity(); // the new place is to be seen at once
}

//! Shows the present stream. If streams follow each other too fast, only the last one is shown.
void Session::showHeader()
{
    m_headerWaits = false;
    const StreamHeader header = m_statistics.header();
    m_model.startStream(header);
    Q_EMIT streamStarted(header);
}

void Session::takeEvent(const QString &text)
{
    const double now = m_clock.seconds();
    tellHeldBack(now);
    if (m_recorder && m_recordedEvents.admits(now))
        m_recorder->addEvent(text);
    if (m_shownEvents.admits(now))
        Q_EMIT noted(text);
}

//! Reports how many events are missing in the log and in the recording.
void Session::tellHeldBack(double now)
{
    if (const qint64 events = m_shownEvents.takeHeldBack(now))
        Q_EMIT noted(
            Text::countedInEnglish("WARNING %n more event(s) is/are not listed", nullptr, events));
    const qint64 events = m_recordedEvents.takeHeldBack(now);
    if (m_recorder && events > 0)
        m_recorder->addEvent(
            Text::countedInEnglish("%n more event(s) is/are not recorded", nullptr, events));
}

void Session::takeReadings(const ReadingBlock &arrived)
{
    m_activity.noteArrival(m_clock.seconds(), arrived.size());
    if (m_limit.isReached())
        return;
    const ReadingBlock &readings = m_computed->extended(m_limit.take(arrived));
    m_statistics.addReadings(readings);
    record(readings);
    m_alarms.update(m_statistics.limitLog());
    if (const auto part = m_timeline.takeBegunPart(readings, m_clock.seconds()))
        takeEvent(*part);
    takeToShow(readings);
    if ((isShowDue() && !m_headerWaits) || m_limit.isReached() || m_toShow.size() >= mostToShow)
        showWaiting();
    if (!m_limit.isReached())
        return;
    m_source->holdAfter(readings.time(readings.size() - 1));
    Q_EMIT limitReached();
}

/*! Records readings. Where they come faster than they are written, that waits, and pictures would get a larger share of the work; so the time is
    added to that until the next one. */
void Session::record(const ReadingBlock &readings)
{
    if (!m_recorder)
        return;
    const double begin = m_clock.seconds();
    m_recorder->addReadings(readings);
    m_waited += m_clock.seconds() - begin;
}

//! Keeps what the model shows of these readings, and the last of them if it is a frame.
void Session::takeToShow(const ReadingBlock &readings)
{
    const bool areFrames = m_statistics.header().hasFrames();
    const ReadingBlock &shown =
        m_timeline.place(areFrames ? m_statistics.frameNumbers() : readings, m_clock.seconds());
    m_toShow.append(shown);
    if (!areFrames || readings.isEmpty())
        return;
    const double *values = readings.values(readings.size() - 1);
    m_frame.resize(readings.channels());
    std::copy(values, values + readings.channels(), m_frame.begin());
    m_frameTime = shown.time(shown.size() - 1);
    tellLeftOut();
}

//! Says once in a stream that readings of its frames belong to no cell.
void Session::tellLeftOut()
{
    const LeftOut &leftOut = m_statistics.leftOut();
    if (m_leftOutTold || leftOut.count == 0)
        return;
    m_leftOutTold = true;
    const auto text = LoggedText::of([&] {
        return leftOut.text();
    });
    takeEvent(QStringLiteral("WARNING %1").arg(text.logged()));
}

void Session::setShowInterval(double seconds)
{
    m_showInterval = std::max(seconds, shortestShowInterval);
}

bool Session::isShowDue() const
{
    const double afterPainting =
        std::min(m_painted / mostPainting + m_waited, longestPaintingInterval);
    return m_clock.seconds() - m_shownAt >= std::max(m_showInterval, afterPainting);
}

void Session::showWaiting()
{
    if (m_headerWaits)
        showHeader();
    if (m_toShow.isEmpty())
        return;
    m_shownAt = m_clock.seconds();
    m_painted = 0.0;
    m_waited = 0.0;
    m_model.addReadings(m_toShow);
    m_toShow.clear(m_toShow.channels());
    showFrame();
}

void Session::showFrame()
{
    if (m_frame.isEmpty() || isPaused())
        return;
    Q_EMIT frameShown(m_frameTime, m_frame);
    m_frame.clear();
}

bool Session::isStale() const
{
    return m_source->state() != Source::State::Finished && !m_source->isHolding()
        && m_activity.isStale(m_clock.seconds());
}

double Session::rate() const
{
    return m_activity.rate(m_clock.seconds());
}

//! Says which files could not be compressed.
void Session::tellCompression()
{
    // A loop over a list that is not const would copy even an empty one at every tick.
    const QStringList errors = m_compressor->takeErrors();
    for (const QString &error : errors)
        Q_EMIT noted(QStringLiteral("WARNING %1").arg(error));
}

void Session::tick()
{
    const double now = m_clock.seconds();
    tellHeldBack(now);
    tellCompression();
    if (isShowDue() && (!m_headerWaits || m_shownHeaders.admits(now)))
        showWaiting();
    const bool stale = isStale();
    if (stale == m_stale)
        return;
    m_stale = stale;
    Q_EMIT staleChanged(stale);
}

void Session::setPaused(bool paused)
{
    if (paused == isPaused())
        return;
    showWaiting();
    m_model.setPaused(paused);
    showFrame();
    Q_EMIT pausedChanged(paused);
}

bool Session::startRecording(Recorder::Options options, QString *error)
{
    const QString first = RecordingNames(options.path, m_recordingLabel).path();
    for (const QString &path : {first, completedPath(first, options.segments)}) {
        if (!m_source->readsFrom(path))
            continue;
        *error = tr("%1 is the source; record to another file").arg(path);
        return false;
    }
    options.label = m_recordingLabel;
    options.source = m_source->description();
    options.datesArrival = m_source->isLive();
    options.mode = m_recordingMode;
    auto recorder = std::make_unique<Recorder>(m_clock, options);
    if (!recorder->start()) {
        *error = recorder->error().now();
        return false;
    }
    stopRecording();
    connect(recorder.get(), &Recorder::fileStarted, this, [this](const QString &name) {
        Q_EMIT noted(QStringLiteral("recording to %1").arg(name));
        Q_EMIT recordingChanged();
    });
    connect(recorder.get(), &Recorder::failed, this, [this](const QString &text) {
        Q_EMIT noted(
            QStringLiteral("ERROR recording stalled: %1. Make room, or record to another disk; "
                           "readings wait meanwhile, and are written when that works again")
                .arg(text));
        Q_EMIT recordingChanged();
    });
    connect(recorder.get(), &Recorder::recovered, this, [this] {
        Q_EMIT noted(QStringLiteral("recording resumed; the readings that waited are written"));
        Q_EMIT recordingChanged();
    });
    connect(recorder.get(), &Recorder::noted, this, &Session::noted);
    if (options.segments != SegmentForm::Text)
        connect(recorder.get(),
                &Recorder::fileCompleted,
                this,
                [this, conversion = segmentConversion(options.segments, options.overwrite)](
                    const QString &path) {
                    m_compressor->add(path, conversion);
                });
    m_recorder = std::move(recorder);
    if (!m_statistics.header().channels.isEmpty())
        m_recorder->startStream(m_statistics.header());
    Q_EMIT noted(QStringLiteral("recording to %1").arg(m_recorder->fileName()));
    Q_EMIT recordingChanged();
    return true;
}

bool Session::stopRecording()
{
    if (!m_recorder)
        return true;
    tellHeldBack(std::numeric_limits<double>::infinity());
    const bool complete = m_recorder->finish();
    const QString name = m_recorder->fileName();
    if (complete) {
        const bool isCompressed = m_compressor->pending().contains(name);
        Q_EMIT noted(
            isCompressed
                ? QStringLiteral("recording to %1 ended; the file is being compressed").arg(name)
                : QStringLiteral("recording to %1 ended").arg(name));
    } else {
        const QString why = m_recorder->error().logged();
        m_incompleteRecordings.append(
            Text::countedInEnglish("the recording %1 is incomplete, %n reading(s) is/are missing%2",
                                   nullptr,
                                   m_recorder->lostReadings())
                .arg(name, why.isEmpty() ? why : QStringLiteral(": ") + why));
        Q_EMIT noted(QStringLiteral("ERROR %1").arg(m_incompleteRecordings.last()));
    }
    m_recorder.reset();
    Q_EMIT recordingChanged();
    return complete;
}

} // namespace Monitor
