// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/TapeDeck.h"

#include "monitor/core/Clock.h"
#include "monitor/tape/TapeIndexThread.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Monitor {

namespace {

//! How much is read before a place, for the displays that show the past.
constexpr qint64 readingsBefore = 30000;
constexpr qint64 bytesBefore = qint64(8) * 1024 * 1024;

//! Returns a single stretch of seconds, or one for each part if readings are counted, which begins anew in each part.
QVector<TapeSurvey::Stretch> stretchesOf(const TapeIndex &index)
{
    QVector<TapeSurvey::Stretch> stretches;
    if (!index.isCounted())
        return {{0.0, index.firstTime(), index.length()}};
    for (int i = 0; i < index.parts(); ++i) {
        const TapeIndex::Part &part = index.part(i);
        const double length = part.end() - part.begin;
        if (part.hasTimes)
            stretches.append({part.begin, part.firstTime, length});
        else if (part.rows > 0)
            stretches.append({part.begin, 1.0, length, false});
    }
    return stretches;
}

} // namespace

TapeDeck::TapeDeck(FileSource &source, Clock &clock, const QString &cacheFolder, QObject *parent)
    : Tape(parent)
    , m_source(source)
    , m_clock(clock)
    , m_indexing(
          std::make_unique<TapeIndexThread>(source.path(), source.options().import, cacheFolder))
{
    connect(&clock, &Clock::tick, this, &TapeDeck::tick);
    connect(&source, &Source::stateChanged, this, &TapeDeck::tellChange);
}

TapeDeck::~TapeDeck() = default;

bool TapeDeck::isPlaying() const
{
    return m_source.state() == Source::State::Running && !m_source.isHolding();
}

void TapeDeck::play()
{
    m_source.setPaused(false);
    if (m_source.state() == Source::State::Finished)
        goTo(loop() ? m_index.spotAt(loop()->from) : TapeSpot{0, -kInfinity});
    tellChange();
}

void TapeDeck::pause()
{
    m_source.setPaused(true);
    tellChange();
}

void TapeDeck::stepForwards()
{
    m_source.step();
    tellChange();
}

//! The reading before the one that is shown is the last one that is earlier.
void TapeDeck::stepBackwards()
{
    m_source.setPaused(true);
    TapeSpot before = spot();
    const double first = m_index.spotAt(m_index.positionOf({before.part, -kInfinity})).time;
    if (before.time > first)
        before.time = std::nextafter(before.time, -kInfinity);
    else if (before.part > 0)
        before = {before.part - 1, kInfinity};
    seekSpot(before);
    tellChange();
}

void TapeDeck::setSpeed(double speed)
{
    m_source.setSpeed(std::max(speed, 0.0));
    Q_EMIT changed();
}

void TapeDeck::seek(double position)
{
    if (std::isfinite(position))
        seekSpot(m_index.spotAt(std::clamp(position, 0.0, length())));
}

void TapeDeck::seekSpot(const TapeSpot &spot)
{
    if (!isIndexed())
        return;
    m_clock.stayAwake();
    m_sought = spot;
    Q_EMIT moved();
}

//! Lets the source stop at the end of the loop, unless a place behind it was sought.
void TapeDeck::updateStop()
{
    if (!loop() || position() > loop()->to) {
        m_source.setStop(std::nullopt);
        return;
    }
    const TapeSpot end = m_index.spotAt(loop()->to);
    m_source.setStop(FileSource::Place{end.part, end.time});
}

double TapeDeck::indexProgress() const
{
    return m_indexing ? m_indexing->progress() : 1.0;
}

TapeSpot TapeDeck::spot() const
{
    if (m_sought)
        return *m_sought;
    const FileSource::Place place = m_source.place();
    return {place.part, place.time};
}

double TapeDeck::position() const
{
    if (m_sought)
        return m_index.positionOf(*m_sought);
    const FileSource::Place reached = m_source.reached();
    return m_index.positionOf({reached.part, reached.time});
}

TapeReadout TapeDeck::readoutOf(const TapeSpot &spot) const
{
    TapeReadout readout;
    readout.time = spot.time;
    readout.part = spot.part;
    readout.parts = m_index.parts();
    if (spot.part < 0 || spot.part >= m_index.parts() || m_index.part(spot.part).hasTimes)
        return readout;
    const TapeIndex::Part &part = m_index.part(spot.part);
    readout.number = qint64(std::floor(std::max(spot.time - part.firstTime, 0.0))) + 1;
    readout.count = part.rows;
    readout.isSpot = part.hasSpots;
    return readout;
}

TapeReadout TapeDeck::readoutAt(double position) const
{
    TapeReadout readout = readoutOf(m_index.spotAt(position));
    readout.isInGap = survey().isInGap(position);
    return readout;
}

//! The position would not tell the time of the reading to the last digit; in a gap, that time would stand still.
TapeReadout TapeDeck::readout() const
{
    const double here = position();
    return survey().isInGap(here) ? readoutAt(here) : readoutOf(spot());
}

TapeSurvey TapeDeck::surveyOfIndex() const
{
    TapeSurvey survey;
    survey.length = m_index.length();
    survey.stretches = stretchesOf(m_index);
    for (const TapeMark &mark : m_index.marks())
        survey.marks.append(
            {mark.kind, m_index.positionOf(mark.spot), mark.length, mark.text, QString()});
    for (int part = 1; part < m_index.parts(); ++part)
        survey.borders.append(m_index.part(part).begin);
    survey.outline = [this](int columns) {
        return m_index.outline(columns);
    };
    return survey;
}

void TapeDeck::tick()
{
    if (m_indexing)
        takeIndex();
    if (m_sought)
        goTo(*m_sought);
    repeatIfDue();
    const double here = position();
    if (here == m_toldPosition)
        return;
    m_toldPosition = here;
    Q_EMIT moved();
}

void TapeDeck::takeIndex()
{
    constexpr double percent = 100.0;
    m_clock.stayAwake(); // until the reading of the file, on another thread, is done
    if (m_indexing->isDone()) {
        m_index = m_indexing->result();
        m_indexError = m_indexing->errorString();
        m_indexing.reset();
        setSurvey(surveyOfIndex());
        Q_EMIT changed();
    } else if (const int progress = int(m_indexing->progress() * percent);
               progress != m_toldProgress) {
        m_toldProgress = progress;
        Q_EMIT changed();
    }
}

//! Reads from a place before, so that what is shown is what would have been shown there.
void TapeDeck::goTo(const TapeSpot &spot)
{
    m_sought = spot;
    updateStop();
    m_sought.reset();
    int entryPart = 0;
    const ReadPoint entry = m_index.entryBefore(spot, readingsBefore, bytesBefore, &entryPart);
    m_source.seek({spot.part, spot.time}, entry, entryPart);
}

void TapeDeck::repeatIfDue()
{
    const bool ended = m_source.state() == Source::State::Finished && !m_source.isHolding();
    if (loop() && (ended || (isPlaying() && m_source.isAtStop())))
        goTo(m_index.spotAt(loop()->from));
}

void TapeDeck::tellChange()
{
    if (isPlaying() == m_toldPlaying)
        return;
    m_toldPlaying = isPlaying();
    Q_EMIT changed();
}

} // namespace Monitor
