// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/FileSource.h"

#include "monitor/core/Clock.h"

#include <QFileInfo>

#include <cmath>

namespace Monitor {

namespace {

constexpr int pieceSize = 256 * 1024;

} // namespace

//! Hands what the reader reads to the source.
class FileSource::Intake : public StreamSink
{
public:
    explicit Intake(FileSource &source)
        : m_source(source)
    {
    }
    void streamStarted(const StreamHeader &header) override { m_source.takeHeader(header); }
    void reading(double time, const double *values) override { m_source.takeReading(time, values); }
    void eventNoted(const QString &text) override { Q_EMIT m_source.noted(text); }
    void lineRefused(const RefusedLine &line) override { Q_EMIT m_source.lineRefused(line); }

private:
    FileSource &m_source;
};

FileSource::FileSource(Clock &clock, const QString &path, const Options &options, QObject *parent)
    : Source(clock, parent)
    , m_path(path)
    , m_options(options)
    , m_intake(std::make_unique<Intake>(*this))
    , m_reader(*m_intake)
{
    if (options.speed > 0.0)
        connect(&clock, &Clock::tick, this, &FileSource::play);
    else
        connect(&m_unpaced, &QTimer::timeout, this, &FileSource::play);
}

FileSource::~FileSource() = default;

QString FileSource::description() const
{
    return m_path;
}

QString FileSource::remedy() const
{
    return tr("Check the path and whether this user may read the file; a table has one line of "
              "names and one line for each time.");
}

LineCounts FileSource::counts() const
{
    return m_reader.counts();
}

bool FileSource::readsFrom(const QString &path) const
{
    const QFileInfo file(path);
    return file.exists() && file.canonicalFilePath() == QFileInfo(m_path).canonicalFilePath();
}

double FileSource::progress() const
{
    return m_reader.progress();
}

void FileSource::start()
{
    if (!m_reader.open(m_path)) {
        setState(State::Failed, tr("%1 cannot be opened: %2").arg(m_path, m_reader.errorString()));
        return;
    }
    setState(State::Running, m_path);
    if (m_options.speed == 0.0)
        m_unpaced.start(0);
}

void FileSource::play()
{
    if (state() != State::Running)
        return;
    if (m_options.speed == 0.0)
        readOn();
    else
        readAhead();
    playDue();
    finishWhenPlayed();
}

//! Reads until more readings wait than one tick can play.
void FileSource::readAhead()
{
    constexpr int enough = 5000;
    while (m_waiting < enough && readOn()) { }
}

//! Reads one piece of the file, and of its next round at the end. Returns false if nothing more can be read.
bool FileSource::readOn()
{
    if (m_atEnd)
        return false;
    if (!m_reader.read(pieceSize))
        m_atEnd = m_reader.hasFailed() || !startLoop();
    return !m_atEnd;
}

//! Plays the readings of the first part that are due, and of the next parts once the first one is over.
void FileSource::playDue()
{
    while (!m_parts.empty()) {
        Part &part = m_parts.front();
        // A later part without a reading in the wanted range must not clear what is shown.
        if (!part.begun && part.readings.isEmpty() && m_partsRead > 1)
            return;
        if (!part.begun)
            beginPart(&part);
        emitDue(&part);
        if (!part.readings.isEmpty() || m_parts.size() == 1)
            return;
        m_parts.pop_front();
    }
}

void FileSource::beginPart(Part *part)
{
    part->begun = true;
    m_startedAt = clock().seconds();
    m_playFrom = part->readings.isEmpty() ? 0.0 : part->readings.time(0);
    Q_EMIT streamStarted(part->header);
}

void FileSource::emitDue(Part *part)
{
    const double due = m_options.speed == 0.0
        ? std::numeric_limits<double>::infinity()
        : m_playFrom + (clock().seconds() - m_startedAt) * m_options.speed;
    ReadingBlock &readings = part->readings;
    m_out.clear(readings.channels());
    for (; part->next < readings.size() && readings.time(part->next) <= due; ++part->next)
        m_out.append(readings.time(part->next), readings.values(part->next));
    m_waiting -= m_out.size();
    if (part->next == readings.size()) {
        readings.clear(readings.channels());
        part->next = 0;
    }
    if (!m_out.isEmpty())
        Q_EMIT readingsArrived(m_out);
}

void FileSource::finishWhenPlayed()
{
    if (!m_atEnd || m_waiting > 0)
        return;
    m_unpaced.stop();
    if (m_reader.hasFailed())
        setState(State::Failed, tr("reading %1: %2").arg(m_path, m_reader.errorString()));
    else
        setState(State::Finished, tr("reached the end of %1").arg(m_path));
}

/*! Begins the next round. Its times continue those of this round; if the file has several parts, each of them begins a
    new stream instead. Returns false if there is no next round, also because its times would be too large. */
bool FileSource::startLoop()
{
    if (!m_options.loop || !m_anyReading || !m_reader.rewind())
        return false;
    if (m_partsRead > 1)
        return true;
    constexpr double stepOfASingleReading = 1.0;
    const double length = m_lastTime - m_firstTime + m_lastStep;
    m_offset += length > 0.0 ? length : stepOfASingleReading;
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
    m_parts.push_back({header, ReadingBlock(header.valuesPerReading())});
}

void FileSource::takeReading(double time, const double *values)
{
    if (time < m_options.from || time > m_options.to)
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
