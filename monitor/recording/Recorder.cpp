// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/Recorder.h"

#include "monitor/recording/RecordingWriter.h"
#include "monitor/sources/Clock.h"

#include <QDir>
#include <QFileInfo>

namespace Monitor {

namespace {

constexpr double flushInterval = 0.5; // s; twice as often as promised, for ticks that come late
constexpr int flushSize = 1024 * 1024;

QString withNumber(const QString &path, int number)
{
    const QFileInfo info(path);
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    return info.dir().filePath(
        QStringLiteral("%1-%2%3").arg(info.completeBaseName()).arg(number).arg(suffix));
}

} // namespace

Recorder::Recorder(Clock &clock, const Options &options, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_options(options)
{
    connect(&clock, &Clock::tick, this, &Recorder::tick);
}

Recorder::~Recorder()
{
    finish();
}

bool Recorder::start()
{
    return openNext();
}

//! The file asked for, then the same with numbers; in a folder, a name made of date and time.
QString Recorder::nextPath() const
{
    const QFileInfo info(m_options.path);
    QString path = m_options.path;
    if (info.isDir())
        path = QDir(m_options.path)
                   .filePath(m_clock.wallTime().toString(
                       QStringLiteral("'corvale-'yyyyMMdd-HHmmss'.csv'")));
    else if (m_filesBegun == 0)
        return path;
    int number = m_filesBegun + 1;
    QString candidate = info.isDir() ? path : withNumber(path, number);
    while (QFileInfo::exists(candidate))
        candidate = withNumber(path, ++number);
    return candidate;
}

//! Where the next file cannot be opened, the one before stays open.
bool Recorder::openNext()
{
    const QString path = nextPath();
    const bool replace = m_filesBegun == 0 && m_options.overwrite;
    auto file = std::make_unique<QFile>(path);
    // Unbuffered: a line is either in this program's memory or the system's, and every write is checked.
    const QIODevice::OpenMode mode = QIODevice::WriteOnly | QIODevice::Unbuffered
        | (replace ? QIODevice::Truncate : QIODevice::NewOnly);
    if (!file->open(mode)) {
        const bool exists = !replace && QFileInfo::exists(path);
        setError(
            exists
                ? tr("%1 exists already; choose another name, or allow to overwrite it").arg(path)
                : tr("%1 cannot be written: %2").arg(path, file->errorString()));
        return false;
    }
    m_file = std::move(file);
    ++m_filesBegun;
    m_written = 0;
    m_anyReading = false;
    m_fileStartedAt = m_clock.seconds();
    m_flushedAt = m_fileStartedAt;
    setError(QString());
    Q_EMIT fileStarted(path);
    return true;
}

void Recorder::setError(const QString &text)
{
    const bool wasWell = m_error.isEmpty();
    m_error = text;
    if (wasWell && !text.isEmpty())
        Q_EMIT failed(text);
    else if (!wasWell && text.isEmpty())
        Q_EMIT recovered();
}

void Recorder::startStream(const StreamHeader &header)
{
    const bool another = m_hasHeader && m_anyReading;
    m_header = header;
    // On a full disk there is no other file to be had: the stream goes on in this one, under its own header.
    if (another && flush())
        openNext();
    m_hasHeader = true;
    append(recordingHeader(header, m_options.source), 0);
}

void Recorder::addReadings(const ReadingBlock &readings)
{
    if (!m_hasHeader || readings.channels() != m_header.channels.size())
        return;
    m_rows.clear();
    for (int row = 0; row < readings.size(); ++row)
        appendRecordingRow(&m_rows, readings.time(row), readings.values(row), readings.channels());
    append(m_rows, readings.size());
    m_anyReading = m_anyReading || !readings.isEmpty();
    if (m_pending.size() >= flushSize && m_error.isEmpty())
        flush();
}

void Recorder::addEvent(const QString &text)
{
    QByteArray line;
    appendRecordingEvent(&line, text);
    append(line, 0);
}

void Recorder::append(const QByteArray &text, int readings)
{
    if (m_pending.size() + text.size() > maxPending) {
        m_lost += readings;
        m_allLost += readings;
        return;
    }
    if (m_lost > 0) {
        appendRecordingEvent(&m_pending,
                             tr("%1 readings were lost here, the disk was full").arg(m_lost));
        m_lost = 0;
    }
    m_pending += text;
}

void Recorder::tick()
{
    const double now = m_clock.seconds();
    if (now - m_flushedAt < flushInterval)
        return;
    m_flushedAt = now;
    if (flush())
        rotateIfDue();
}

//! False where the disk did not take all; what it did not take stays for the next time.
bool Recorder::flush()
{
    if (!m_file || m_pending.isEmpty())
        return m_error.isEmpty();
    const qint64 taken = m_file->write(m_pending);
    if (taken > 0) {
        m_written += taken;
        m_pending.remove(0, int(taken));
    }
    if (!m_pending.isEmpty()) {
        setError(tr("%1: %2").arg(m_file->fileName(), m_file->errorString()));
        return false;
    }
    setError(QString());
    return true;
}

void Recorder::rotateIfDue()
{
    const bool old = m_options.rotateSeconds > 0.0
        && m_clock.seconds() - m_fileStartedAt >= m_options.rotateSeconds;
    const bool large = m_options.rotateBytes > 0 && m_written >= m_options.rotateBytes;
    if (m_anyReading && (old || large) && openNext())
        append(recordingHeader(m_header, m_options.source), 0);
}

bool Recorder::finish()
{
    if (!m_file)
        return m_error.isEmpty();
    const bool complete = flush() && m_allLost == 0;
    m_file.reset();
    return complete;
}

} // namespace Monitor
