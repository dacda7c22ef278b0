// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/CommonTape.h"

#include "monitor/core/Clock.h"
#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"
#include "monitor/tape/TapeIndexThread.h"

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

//! How much is read before a place, for the displays that show the past.
constexpr qint64 readingsBeforePlace = 30000;
constexpr qint64 bytesBeforePlace = qint64(8) * 1024 * 1024;
//! How many readings are played before other things get their turn.
constexpr int readingsInATurn = 20000;

double before(double position)
{
    return std::nextafter(position, -kInfinity);
}

} // namespace

CommonTape::Options CommonTape::optionsOf(const FileSource &first)
{
    const FileSource::Options &options = first.options();
    return {first.speed(), options.loop, options.from, options.to};
}

CommonTape::CommonTape(const std::vector<Recording> &recordings,
                       const Options &options,
                       Clock &clock,
                       const QString &cacheFolder,
                       QObject *parent)
    : Tape(parent)
    , m_clock(clock)
    , m_options(options)
    , m_play(options.speed)
{
    const bool wasPaused = !recordings.empty() && recordings.front().source->isHolding();
    for (const Recording &recording : recordings) {
        FileSource &source = *recording.source;
        source.setLed(true);
        m_tracks.push_back(
            {recording.name,
             &source,
             std::make_unique<TapeIndexThread>(source.path(), source.options().import, cacheFolder),
             TapeIndex()});
    }
    setPaused(wasPaused);
    connect(&clock, &Clock::tick, this, &CommonTape::tick);
    connect(&m_unpaced, &QTimer::timeout, this, [this] {
        playTo(kInfinity);
        tellMove();
    });
}

CommonTape::~CommonTape()
{
    for (const Track &track : m_tracks)
        if (track.source)
            track.source->setLed(false);
}

double CommonTape::indexProgress() const
{
    double progress = 0.0;
    for (const Track &track : m_tracks)
        progress += track.indexing ? track.indexing->progress() : 1.0;
    return m_tracks.empty() ? 1.0 : progress / count();
}

QString CommonTape::indexError() const
{
    return m_isPlaced && m_tracks.empty()
        ? tr("none of the recordings can be read; open them one by one to see why")
        : QString();
}

//! Marks all sources as held back, or as free again.
void CommonTape::setPaused(bool paused)
{
    m_play.setPaused(m_clock.seconds(), paused, m_position);
    for (const Track &track : m_tracks)
        if (track.source)
            track.source->setPaused(paused);
    updatePace();
}

//! Lets the event loop play while nothing else paces the tape, and has the clock pace it otherwise.
void CommonTape::updatePace()
{
    m_clock.stayAwake();
    if (isIndexed() && isPlaying() && m_play.isUnpaced())
        m_unpaced.start(0);
    else
        m_unpaced.stop();
}

void CommonTape::play()
{
    if (m_hasEnded)
        m_sought = loop() ? loop()->from : firstPosition();
    m_hasEnded = false;
    setPaused(false);
    Q_EMIT changed();
}

void CommonTape::pause()
{
    setPaused(true);
    Q_EMIT changed();
}

void CommonTape::setSpeed(double speed)
{
    m_play.setSpeed(m_clock.seconds(), std::max(speed, 0.0), m_position);
    for (const Track &track : m_tracks)
        if (track.source)
            track.source->setSpeed(m_play.speed()); // so that it stays when the tape goes
    updatePace();
    Q_EMIT changed();
}

void CommonTape::seek(double position)
{
    if (!isIndexed() || !std::isfinite(position))
        return;
    m_clock.stayAwake();
    m_sought = std::clamp(position, 0.0, length());
    Q_EMIT moved();
}

//! Readings of one moment are one step.
void CommonTape::stepForwards()
{
    pause();
    if (m_sought)
        goTo(*m_sought);
    const std::optional<Run> first = isIndexed() ? nextRun() : std::nullopt;
    if (!first)
        return;
    for (auto run = first; run && run->position <= first->position; run = nextRun()) {
        run->until = first->position;
        playRun(*run);
    }
    m_play.moveTo(m_clock.seconds(), m_position);
    tellMove();
}

//! The readings before those that are shown are the last ones that are earlier.
void CommonTape::stepBackwards()
{
    pause();
    if (!isIndexed() || position() <= firstPosition())
        return;
    if (m_sought)
        goTo(*m_sought);
    goTo(before(latestPlayed()));
    m_position = latestPlayed();
    m_play.moveTo(m_clock.seconds(), m_position);
    tellMove();
}

void CommonTape::tick()
{
    if (!m_isPlaced && !takeIndexes())
        return;
    if (m_sought && isIndexed())
        goTo(*m_sought);
    if (isPlaying() && !m_play.isUnpaced() && isIndexed()) {
        m_clock.stayAwake();
        playTo(m_play.due(m_clock.seconds()));
    }
    tellMove();
}

void CommonTape::tellMove()
{
    if (position() == m_toldPosition)
        return;
    m_toldPosition = position();
    Q_EMIT moved();
}

//! Places the recordings once all are indexed and started. Returns whether they are placed.
bool CommonTape::takeIndexes()
{
    constexpr double percent = 100.0;
    m_clock.stayAwake(); // until the reading of the files, on other threads, is done
    bool isComplete = true;
    for (const Track &track : m_tracks) {
        const bool isStarted = !track.source || track.source->state() != Source::State::Idle;
        isComplete = isComplete && isStarted && (!track.indexing || track.indexing->isDone());
    }
    const int progress = int(indexProgress() * percent);
    if (!isComplete && progress != m_toldProgress) {
        m_toldProgress = progress;
        Q_EMIT changed();
    }
    if (!isComplete)
        return false;
    place();
    return true;
}

//! Takes the index of a recording. Returns false, and says why, if it cannot be placed.
bool CommonTape::takeIndex(Track *track)
{
    track->index = track->indexing->result();
    const QString why = track->indexing->errorString();
    track->indexing.reset();
    if (!track->source || track->source->state() == Source::State::Failed)
        return false;
    if (!track->index.isEmpty())
        return true;
    const QString path = track->source->path();
    track->source->fail(LoggedText::of([path, why] {
        return tr("%1 cannot be played together with others: %2. Open it alone to see what can be "
                  "read of it")
            .arg(path, why);
    }));
    return false;
}

void CommonTape::place()
{
    std::vector<Track> usable;
    std::vector<CommonTimes::Track> parts;
    for (Track &track : m_tracks) {
        if (!takeIndex(&track))
            continue;
        CommonTimes::Track its;
        for (int i = 0; i < track.index.parts(); ++i) {
            const TapeIndex::Part &part = track.index.part(i);
            const auto origin = std::isnan(part.origin) ? std::nullopt : std::optional(part.origin);
            its.push_back({part.firstTime, part.lastTime, part.step(), origin, part.rows > 0});
        }
        parts.push_back(its);
        usable.push_back(std::move(track));
    }
    m_tracks = std::move(usable);
    m_times = CommonTimes(parts);
    m_isPlaced = true;
    setSurvey(surveyOfTracks());
    begin();
    Q_EMIT changed();
}

//! Says in the log how a recording was placed, if not by what it states.
void CommonTape::tellPlacing(int track) const
{
    if (!m_times.isDated(track))
        Q_EMIT source(track).noted(
            QStringLiteral("WARNING the recording does not state when it was taken: it is played "
                           "from the beginning of the tape"));
    if (m_tracks[std::size_t(track)].index.isCounted())
        Q_EMIT source(track).noted(QStringLiteral(
            "WARNING the recording has readings without times: they are played one a second"));
    if (m_times.movedParts(track) > 0)
        Q_EMIT source(track).noted(Text::countedInEnglish(
            "WARNING %n part(s) of the recording is/are played after the part before, which ended "
            "later than it/they claim(s) to have begun",
            nullptr,
            m_times.movedParts(track)));
}

//! Begins where the first recording is, if it has been played, or at the first time that is wanted.
void CommonTape::begin()
{
    const bool goesOn = count() > 0 && source(0).hasPlayed();
    const double there = goesOn ? positionOf(0, source(0).place()) : firstPosition();
    for (int track = 0; track < count(); ++track) {
        std::vector<Source::PlacedOrigin> origins;
        origins.reserve(std::size_t(m_times.parts(track)));
        for (int part = 0; part < m_times.parts(track); ++part)
            origins.push_back({m_times.zero() + m_times.origin(track, part), m_times.isDated()});
        source(track).setPlacedOrigins(origins);
        tellPlacing(track);
    }
    if (goesOn) {
        goTo(there);
        updatePace();
        return;
    }
    for (int track = 0; track < count(); ++track) {
        source(track).passTo(limitOf(track, before(there)));
        PlayLimit nothing = limitOf(track, before(there));
        nothing.part = std::max(nothing.part, 0);
        nothing.until = -kInfinity;
        source(track).playTo(nothing); // tells its channels
    }
    m_position = std::clamp(there, 0.0, length());
    m_play.moveTo(m_clock.seconds(), m_position);
    updatePace();
}

//! Returns the limit that has a recording play up to a position.
PlayLimit CommonTape::limitOf(int track, double until) const
{
    const int part = m_times.partAt(track, until);
    return part < 0 ? PlayLimit() : PlayLimit{part, until, m_times.shift(track, part)};
}

double CommonTape::positionOf(int track, const FileSource::Place &place) const
{
    const int part = std::clamp(place.part, 0, m_times.parts(track) - 1);
    return PlayLimit::position(place.time, m_times.shift(track, part));
}

//! Returns the position at which playing begins.
double CommonTape::firstPosition() const
{
    return count() > 0 && std::isfinite(m_options.from) ? m_times.shift(0, 0) + m_options.from
                                                        : 0.0;
}

double CommonTape::lastPosition() const
{
    return count() > 0 && std::isfinite(m_options.to) ? m_times.shift(0, 0) + m_options.to
                                                      : kInfinity;
}

//! Returns the recording whose next reading comes first, and up to where it is the only one.
std::optional<CommonTape::Run> CommonTape::nextRun() const
{
    Run run;
    run.until = kInfinity;
    for (int track = 0; track < count(); ++track) {
        const auto next = isGone(track) ? std::nullopt : source(track).next();
        if (!next)
            continue;
        const double position = positionOf(track, *next);
        if (run.track < 0) {
            run.track = track;
            run.position = position;
        } else if (position < run.position) {
            run.until = before(std::min(run.position, run.until)); // those before go first
            run.track = track;
            run.position = position;
        } else {
            run.until = std::min(run.until, position);
        }
    }
    return run.track < 0 ? std::nullopt : std::optional(run);
}

//! Plays a run, or what has been read of it. Returns the number of readings.
int CommonTape::playRun(const Run &run)
{
    FileSource &source = this->source(run.track);
    const int played = source.playTo(limitOf(run.track, run.until));
    if (played > 0 && !isGone(run.track))
        m_position = positionOf(run.track, source.place());
    return played;
}

void CommonTape::playTo(double due)
{
    if (!isPlaying() || m_sought)
        return;
    const bool isInLoop = loop() && m_position <= loop()->to;
    const double end = isInLoop ? std::min(loop()->to, lastPosition()) : lastPosition();
    int left = readingsInATurn;
    auto run = nextRun();
    for (; run && run->position <= std::min(due, end) && left > 0; run = nextRun()) {
        run->until = std::min({run->until, due, end});
        const int played = playRun(*run);
        left -= std::max(played, 1);
        if (!isPlaying() || m_sought)
            return; // somebody who heard of the readings has stopped the tape
    }
    const bool isOver = !run || (run->position > end && due >= end);
    if (isOver)
        reachEnd();
    else if (std::isfinite(due)) // between readings time passes as well
        m_position = std::max(m_position, std::min({due, end, before(run->position)}));
}

void CommonTape::reachEnd()
{
    if (loop()) {
        goTo(loop()->from);
    } else if (m_options.repeats) {
        goTo(firstPosition());
    } else {
        m_hasEnded = true;
        for (const Track &track : m_tracks)
            if (track.source)
                track.source->passToEnd();
        updatePace();
        Q_EMIT changed();
    }
}

void CommonTape::goTo(double position)
{
    m_sought.reset();
    m_hasEnded = false;
    for (int track = 0; track < count(); ++track)
        if (!isGone(track))
            seekTrack(track, position);
    m_position = position;
    m_play.moveTo(m_clock.seconds(), position);
    updatePace();
}

//! Reads from a place before, so that what is shown is what would have been shown there.
void CommonTape::seekTrack(int track, double position)
{
    const TapeIndex &index = m_tracks[std::size_t(track)].index;
    FileSource &source = this->source(track);
    const PlayLimit limit = limitOf(track, position);
    FileSource::Place place{0, -kInfinity};
    if (limit.part >= 0)
        place = {limit.part, std::min(position - limit.shift, index.part(limit.part).lastTime)};
    int entryPart = 0;
    const ReadPoint entry = index.entryBefore({place.part, place.time},
                                              readingsBeforePlace,
                                              bytesBeforePlace,
                                              &entryPart);
    source.seek(place, entry, entryPart);
    for (auto next = source.next(); next && limit.reaches(next->part, next->time);
         next = source.next())
        source.playTo(limit);
}

//! Returns the position of the latest reading that is shown.
double CommonTape::latestPlayed() const
{
    double latest = firstPosition();
    for (int track = 0; track < count(); ++track)
        if (!isGone(track) && source(track).hasPlayed())
            latest = std::max(latest, positionOf(track, source(track).place()));
    return latest;
}

} // namespace Monitor
