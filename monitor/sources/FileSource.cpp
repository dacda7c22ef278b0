// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/FileSource.h"

#include "monitor/core/Clock.h"
#include "monitor/core/Text.h"
#include "monitor/nexus/TableReaders.h"
#include "monitor/sources/FileIntake.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace Monitor {

FileSource::FileSource(Clock &clock, const QString &path, const Options &options, QObject *parent)
    : Source(clock, parent)
    , m_path(path)
    , m_options(options)
    , m_intake(std::make_unique<Intake>(*this))
    , m_play(options.speed)
{
    connect(&clock, &Clock::tick, this, [this] {
        if (!m_play.isUnpaced())
            play();
    });
    connect(&m_unpaced, &QTimer::timeout, this, &FileSource::play);
}

FileSource::~FileSource() = default;

QString FileSource::description() const
{
    return m_path;
}

QString FileSource::remedy() const
{
    return QFileInfo(m_path).isReadable()
        ? tr("The file must be a recording, a table with one line of names and one line for each "
             "time, or HDF5.")
        : tr("Check the path and whether this user may read the file.");
}

QString FileSource::emptyReason() const
{
    if (!m_atEnd || m_hasPlayed || m_waiting > 0)
        return {};
    const LineCounts counts = this->counts();
    if (counts.readings > 0)
        return Text::counted("none of its %n reading(s) lies in the times that were asked for",
                             nullptr,
                             counts.readings);
    if (counts.lines == 0)
        return QFileInfo(m_path).size() > 0 ? tr("nothing of the file can be read")
                                            : tr("the file is empty");
    if (counts.bad() == 0)
        return tr("it has names or comments, but no row with numbers");
    return Text::counted("none of its %n line(s) can be read; the first was %1; a row must be "
                         "t,v1,v2,... with "
                         "decimal points, or --import must say how it is written",
                         nullptr,
                         counts.bad())
        .arg(m_firstRefused.phrase());
}

LineCounts FileSource::counts() const
{
    return m_reader ? m_reader->counts() : LineCounts();
}

bool FileSource::readsFrom(const QString &path) const
{
    const QFileInfo file(path);
    return file.exists() && file.canonicalFilePath() == QFileInfo(m_path).canonicalFilePath();
}

double FileSource::progress() const
{
    return m_reader ? m_reader->progress() : 0.0;
}

void FileSource::start()
{
    m_reader = makeTableReader(m_path, *m_intake, m_options.import, m_options.passesDamage);
    if (!m_reader->open(m_path)) {
        const LoggedText why = LoggedText::ofSystem(m_reader->errorString());
        setState(State::Failed, LoggedText::of([&] {
                     return tr("%1 cannot be opened: %2").arg(m_path, why.now());
                 }));
        return;
    }
    setState(State::Running, m_path);
    updatePace();
}

//! Lets the event loop play while nothing else paces the file, and has the clock pace it otherwise.
void FileSource::updatePace()
{
    clock().stayAwake();
    if (state() == State::Running && m_play.isUnpaced() && !m_play.isPaused() && !isLed())
        m_unpaced.start(0);
    else
        m_unpaced.stop();
}

void FileSource::setPaused(bool paused)
{
    m_play.setPaused(clock().seconds(), paused, m_shown.time);
    updatePace();
}

void FileSource::setSpeed(double speed)
{
    m_play.setSpeed(clock().seconds(), speed, m_shown.time);
    updatePace();
}

void FileSource::play()
{
    if (state() != State::Running || isLed())
        return;
    if (m_play.isPaused() && m_shown.part < 0)
        return; // paused before the first reading
    if (isAtStop())
        return;
    if (!m_play.isPaused())
        clock().stayAwake();
    if (m_play.isUnpaced())
        readOn();
    else
        readAhead();
    playDue();
    finishWhenPlayed();
}

void FileSource::step()
{
    setPaused(true);
    if (state() != State::Running)
        return;
    readAhead();
    while (m_parts.size() > 1 && m_parts.front().begun && m_parts.front().readings.isEmpty())
        m_parts.pop_front();
    if (!m_parts.empty() && !m_parts.front().readings.isEmpty()) {
        const Part &part = m_parts.front();
        m_play.moveTo(clock().seconds(), part.readings.time(part.next));
    }
    playDue();
    finishWhenPlayed();
}

void FileSource::seek(const Place &place, const ReadPoint &entry, int entryPart)
{
    m_parts.clear();
    m_waiting = 0;
    m_intake->events.clear();
    m_atEnd = false;
    m_offset = 0.0;
    m_roundLength = 0.0;
    m_firstInPart = true;
    m_partsRead = entryPart;
    m_sought = place;
    m_hasPlayed = false;
    if (isLed()) {
        m_limit = PlayLimit{place.part}; // playTo() knows the place to the last digit
    } else {
        m_options.loop = false;
        m_options.from = -std::numeric_limits<double>::infinity();
        m_options.to = std::numeric_limits<double>::infinity();
    }
    if (!m_reader)
        return;
    if (!m_reader->resume(entry)) {
        setState(State::Failed, readingFailed());
        return;
    }
    setState(State::Running, m_path);
    readUpTo(place);
    playDue();
    finishWhenPlayed();
    updatePace();
}

//! Reads until the next reading is after the place. Parts before it are passed over.
void FileSource::readUpTo(const Place &place)
{
    constexpr int mostReadings = 2000000; // no entry of an index is so far from its place
    const auto isReached = [&] {
        if (m_parts.empty())
            return false;
        const Part &last = m_parts.back();
        const bool later =
            !last.readings.isEmpty() && last.readings.time(last.readings.size() - 1) > place.time;
        return last.number > place.part || (last.number == place.part && later);
    };
    bool more = true;
    constexpr qint64 mostValues = 50000000; // of large frames there are fewer
    while (more && m_waiting < mostReadings && waitingValues() < mostValues) {
        more = !isReached() && readOn();
        while (m_parts.size() > 1 && m_parts.front().number < place.part) {
            m_waiting -= m_parts.front().readings.size();
            m_parts.pop_front();
        }
    }
}

void FileSource::setStop(const std::optional<Place> &stop)
{
    m_stop = stop;
}

bool FileSource::isAtStop() const
{
    if (!m_stop || m_parts.empty())
        return false;
    const Part &part = m_parts.front();
    const bool later =
        part.next < part.readings.size() && part.readings.time(part.next) > m_stop->time;
    return part.number > m_stop->part
        || (part.number == m_stop->part && part.begun && later
            && m_play.due(clock().seconds()) >= m_stop->time);
}

//! In a loop, the times that are emitted go on; the place is that of the file.
FileSource::Place FileSource::place() const
{
    return {std::max(m_shown.part, 0), timeInRound(m_shown.time)};
}

//! Returns a time as the file has it, also while the file is repeated.
double FileSource::timeInRound(double time) const
{
    const bool isRepeated = m_roundLength > 0.0 && m_shown.part >= 0;
    return isRepeated ? m_firstTime + std::fmod(time - m_firstTime, m_roundLength) : time;
}

FileSource::Place FileSource::reached() const
{
    const double due = m_play.due(clock().seconds());
    const bool waits = !m_parts.empty() && m_parts.front().begun
        && m_parts.front().next < m_parts.front().readings.size();
    if (!waits || !std::isfinite(due))
        return place();
    const Part &part = m_parts.front();
    double end = std::nextafter(part.readings.time(part.next), m_shown.time);
    if (m_stop && m_stop->part == part.number)
        end = std::min(end, m_stop->time);
    return {part.number, timeInRound(std::max(std::min(due, end), m_shown.time))};
}

bool FileSource::isHolding() const
{
    // A file that is led is silent before each of its parts, since their turn has not come.
    const bool isBetweenParts = isLed() && (m_parts.empty() || !m_parts.front().begun);
    return m_play.isPaused() || isBetweenParts;
}

//! Readings behind that time may have been emitted with it; the place is that of the last one that was wanted.
void FileSource::holdAfter(double time)
{
    if (isLed())
        return; // it is not up to this file
    setPaused(true);
    m_play.moveTo(clock().seconds(), time);
    m_shown.time = time;
}

std::optional<Source::PlacedOrigin> FileSource::placedOrigin() const
{
    if (m_shown.part < 0 || std::size_t(m_shown.part) >= m_origins.size())
        return std::nullopt;
    return m_origins[std::size_t(m_shown.part)];
}

//! Reads until more readings wait than one tick can play.
void FileSource::readAhead()
{
    constexpr int enough = 5000;
    const auto &events = m_intake->events;
    constexpr qint64 enoughValues =
        2000000; // a few large frames, or that many readings of 256 channels
    while (m_waiting < enough && events.size() < enough && waitingValues() < enoughValues
           && readOn()) { }
}

//! Returns how many values the readings that wait have, as if all parts had the channels of the last one.
qint64 FileSource::waitingValues() const
{
    return m_parts.empty() ? 0 : m_waiting * m_parts.back().readings.channels();
}

//! Reads one piece of the file, and of its next round at the end. Returns false if nothing more can be read.
bool FileSource::readOn()
{
    if (m_atEnd)
        return false;
    if (!m_reader->read(pieceSize))
        m_atEnd = m_reader->hasFailed() || !startLoop();
    return !m_atEnd;
}

//! Plays the readings of the first part that are due, and of the next parts once the first one is over.
void FileSource::playDue()
{
    if (!m_play.isPaused() || m_shown.part < 0)
        m_intake->tellEvents();
    while (!m_parts.empty()) {
        Part &part = m_parts.front();
        // A later part without a reading in the wanted range must not clear what is shown.
        if (!part.begun && part.readings.isEmpty() && m_partsRead > 1)
            return;
        if (!part.begun && !isReached(part.number))
            return;
        if (!part.begun)
            beginPart(&part);
        emitDue(&part);
        const bool waits = m_play.isPaused() && !isLed();
        if (!part.readings.isEmpty() || m_parts.size() == 1 || waits)
            return;
        m_parts.pop_front();
    }
}

void FileSource::beginPart(Part *part)
{
    part->begun = true;
    const bool goesOn = m_sought && m_shown.part == part->number;
    double begin = part->readings.isEmpty() ? 0.0 : part->readings.time(0);
    if (m_sought && m_sought->part == part->number)
        begin = std::max(begin, m_sought->time);
    m_play.setPace(PlayClock::paceOf(part->header.hasTimes));
    m_play.moveTo(clock().seconds(), begin);
    m_shown = {part->number, begin};
    m_sought.reset();
    if (goesOn)
        Q_EMIT jumped();
    else
        Q_EMIT streamStarted(part->header);
}

void FileSource::emitDue(Part *part)
{
    const double clockDue = m_play.due(clock().seconds());
    ReadingBlock &readings = part->readings;
    m_out.clear(readings.channels());
    // The readings before each event that is due, and the event. A slot may change what is played, so all is taken before.
    std::vector<std::pair<ReadingBlock, QString>> pieces;
    const int first = part->next;
    while (part->next < readings.size()
           && isDue(part->number, readings.time(part->next), clockDue)) {
        while (m_intake->hasEventBefore(m_intake->played())) {
            pieces.emplace_back(m_out, m_intake->takeEvent());
            m_out.clear(readings.channels());
        }
        m_shown.time = readings.time(part->next);
        m_out.append(m_shown.time, readings.values(part->next));
        --m_waiting;
        ++part->next;
    }
    m_hasPlayed = m_hasPlayed || part->next > first;
    removePlayed(part);
    const ReadingBlock last = pieces.empty() ? ReadingBlock() : m_out;
    for (const auto &[before, event] : pieces) {
        if (!before.isEmpty())
            Q_EMIT readingsArrived(before);
        Q_EMIT noted(event);
    }
    const ReadingBlock &rest = pieces.empty() ? m_out : last;
    if (!rest.isEmpty())
        Q_EMIT readingsArrived(rest);
    m_intake->tellEvents();
}

//! Returns whether a reading is to be played now.
bool FileSource::isDue(int part, double time, double clockDue) const
{
    if (m_limit)
        return m_limit->reaches(part, time);
    const bool isStopped =
        m_stop && !PlayLimit{m_stop->part, m_stop->time, 0.0}.reaches(part, time);
    return !isStopped && time <= clockDue;
}

//! Forgets what was played of a part, at once if that is all, otherwise when it is most of what is kept.
void FileSource::removePlayed(Part *part)
{
    constexpr int worthMoving = 5000;
    ReadingBlock &readings = part->readings;
    if (part->next == readings.size())
        readings.clear(readings.channels());
    else if (part->next >= worthMoving && part->next >= readings.size() / 2)
        readings.removeFirst(part->next);
    else
        return;
    part->next = 0;
}

void FileSource::finishWhenPlayed()
{
    if (!m_atEnd || m_waiting > 0 || state() == State::Finished)
        return;
    if (isLed())
        m_limit->part = m_partsRead; // events of a part without readings are not lost
    m_intake->tellEvents();
    m_unpaced.stop();
    if (m_reader->hasFailed())
        setState(State::Failed, readingFailed());
    else
        setState(State::Finished, LoggedText::of([this] {
                     return tr("reached the end of %1").arg(m_path);
                 }));
}

LoggedText FileSource::readingFailed() const
{
    const LoggedText why = LoggedText::ofSystem(m_reader->errorString());
    return LoggedText::of([&] {
        return tr("reading %1 failed: %2").arg(m_path, why.now());
    });
}

/*! Begins the next round. Its times continue those of this round; if the file has several parts, each of them begins a
    new stream instead. Returns false if there is no next round, also because its times would be too large. */
bool FileSource::startLoop()
{
    if (!m_options.loop || isLed() || !m_anyReading || !m_reader->rewind())
        return false;
    if (m_partsRead > 1)
        return true;
    constexpr double stepOfASingleReading = 1.0;
    const double length = m_lastTime - m_firstTime + m_lastStep;
    m_roundLength = length > 0.0 ? length : stepOfASingleReading;
    m_offset += m_roundLength;
    return std::isfinite(m_lastTime + m_offset);
}

void FileSource::takeHeader(const StreamHeader &header)
{
    const bool nextRound = m_offset > 0.0;
    if (nextRound)
        return;
    ++m_partsRead;
    m_firstInPart = true;
    // A part without a reading in the wanted range is not played.
    if (!m_parts.empty() && m_parts.back().readings.isEmpty() && !m_parts.back().begun)
        m_parts.pop_back();
    m_parts.push_back({header, ReadingBlock(header.valuesPerReading()), m_partsRead - 1});
}

void FileSource::takeReading(double time, const double *values)
{
    if (!isLed() && (time < m_options.from || time > m_options.to))
        return;
    if (m_firstInPart)
        m_firstTime = time;
    else if (time > m_lastTime)
        m_lastStep = time - m_lastTime;
    m_firstInPart = false;
    m_anyReading = true;
    m_lastTime = time;
    m_parts.back().readings.append(time + m_offset, values);
    ++m_waiting;
}

} // namespace Monitor
