// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/FileSource.h"

#include "monitor/sources/Clock.h"

#include <QFileInfo>

namespace Monitor {

namespace {

constexpr int pieceSize = 256 * 1024;

} // namespace

//! What the reader reads goes to the source.
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
    return tr("Check the path and whether this user may read it; a table has one line of names and "
              "one line "
              "for each time.");
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
    if (m_options.speed == 0.0) {
        readOn();
        emitUntil(std::numeric_limits<double>::infinity());
    } else {
        readAhead();
        if (m_anyReading)
            emitUntil(m_playFrom + (clock().seconds() - m_startedAt) * m_options.speed);
    }
    finishWhenPlayed();
}

//! Keeps more in hand than a tick can play.
void FileSource::readAhead()
{
    constexpr int enough = 5000;
    while (m_ahead.size() - m_nextAhead < enough && readOn()) { }
}

//! False where nothing more can be read.
bool FileSource::readOn()
{
    if (m_atEnd)
        return false;
    if (!m_reader.read(pieceSize))
        m_atEnd = m_reader.hasFailed() || !startLoop();
    return !m_atEnd;
}

void FileSource::emitUntil(double time)
{
    m_out.clear(m_ahead.channels());
    while (m_nextAhead < m_ahead.size() && m_ahead.time(m_nextAhead) <= time) {
        m_out.append(m_ahead.time(m_nextAhead), m_ahead.values(m_nextAhead));
        ++m_nextAhead;
    }
    if (m_nextAhead == m_ahead.size()) {
        m_ahead.clear(m_ahead.channels());
        m_nextAhead = 0;
    }
    if (!m_out.isEmpty())
        Q_EMIT readingsArrived(m_out);
}

void FileSource::finishWhenPlayed()
{
    if (!m_atEnd || m_nextAhead < m_ahead.size())
        return;
    m_unpaced.stop();
    if (m_reader.hasFailed())
        setState(State::Failed, tr("reading %1: %2").arg(m_path, m_reader.errorString()));
    else
        setState(State::Finished, tr("%1 came to its end").arg(m_path));
}

//! The next round's times follow on this one's.
bool FileSource::startLoop()
{
    if (!m_options.loop || !m_anyReading || !m_reader.rewind())
        return false;
    constexpr double stepOfASingleReading = 1.0;
    const double length = m_lastTime - m_firstTime + m_lastStep;
    m_offset += length > 0.0 ? length : stepOfASingleReading;
    return true;
}

void FileSource::takeHeader(const StreamHeader &header)
{
    const bool nextRound = m_offset > 0.0;
    if (nextRound)
        return;
    emitUntil(std::numeric_limits<double>::infinity());
    m_anyReading = false;
    m_ahead.clear(header.channels.size());
    Q_EMIT streamStarted(header);
}

void FileSource::takeReading(double time, const double *values)
{
    if (time < m_options.from || time > m_options.to)
        return;
    if (!m_anyReading) {
        m_anyReading = true;
        m_firstTime = time;
        m_playFrom = time;
        m_startedAt = clock().seconds();
    } else if (time > m_lastTime) {
        m_lastStep = time - m_lastTime;
    }
    m_lastTime = time;
    m_ahead.append(time + m_offset, values);
}

} // namespace Monitor
