// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/Recorder.h"

#include "monitor/core/Clock.h"
#include "monitor/recording/RecordingWriter.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace Monitor {

namespace {

constexpr double flushInterval = 0.5; // s; twice as often as promised, because ticks may come late
constexpr double shortestFile = 1.0; // s
constexpr double retryInterval = 10.0; // s, after a next file could not be opened

} // namespace

Recorder::Recorder(Clock &clock, const Options &options, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_options(options)
    , m_names(options.path, options.label)
{
    connect(&clock, &Clock::tick, this, &Recorder::tick);
}

Recorder::~Recorder()
{
    finish();
}

bool Recorder::start()
{
    using Existing = RecordingFile::Existing;
    const QDateTime now = m_clock.wallTime();
    // What the former run has recorded is never replaced.
    const bool replaces = m_options.overwrite && !m_options.continues;
    LoggedText error;
    m_isRecording = open(m_options.continues ? m_names.next(now, 1) : m_names.first(now),
                         replaces ? Existing::Replace : Existing::Refuse,
                         &error);
    setError(error);
    return m_isRecording;
}

LoggedText Recorder::existsAlready(const QString &path)
{
    return LoggedText::of([&path] {
        return tr("%1 exists already; choose another name, or allow overwriting (--overwrite)")
            .arg(path);
    });
}

bool Recorder::open(const QString &path, RecordingFile::Existing existing, LoggedText *error)
{
    auto file = std::make_unique<RecordingFile>();
    const QString completed = completedPath(path, m_options.segments);
    if (completed != path && !m_options.overwrite && QFileInfo::exists(completed)) {
        *error = existsAlready(completed);
        return false;
    }
    if (!file->open(path, existing, m_options.mode)) {
        const bool exists = existing == RecordingFile::Existing::Refuse && QFileInfo::exists(path);
        *error = exists ? existsAlready(path) : LoggedText::of([&] {
            return tr("%1 cannot be written: %2").arg(path, file->error().now());
        });
        return false;
    }
    if (existing == RecordingFile::Existing::Replace)
        replaceComplete(path, completed);
    m_worker.settle();
    closePresentFile();
    m_file = std::move(file);
    m_worker.setFile(m_file.get(), m_error.isEmpty(), cutSize());
    ++m_filesBegun;
    m_fileStartedAt = m_clock.seconds();
    Q_EMIT fileStarted(path);
    return true;
}

/*! Removes the complete file of the recording that is replaced: until this one is complete, it would stand beside it as if it were the same.
    One in a form that was not asked for stays, and is told. */
void Recorder::replaceComplete(const QString &path, const QString &completed)
{
    for (const SegmentForm form : {SegmentForm::Zstd, SegmentForm::Hdf5}) {
        const QString other = completedPath(path, form);
        if (other == completed)
            QFile::remove(other);
        else if (QFileInfo::exists(other))
            m_toTell +=
                QStringLiteral("WARNING %1 is what an earlier recording became: it stays, and "
                               "is not that of %2")
                    .arg(other, path);
    }
}

//! Closes the file that another one follows.
void Recorder::closePresentFile()
{
    if (!m_file)
        return;
    m_closedSize += m_file->size();
    const QString path = m_file->path();
    const bool isComplete =
        m_file->displacement() == RecordingFile::Displacement::None && m_file->close();
    m_file.reset();
    if (isComplete)
        Q_EMIT fileCompleted(path);
}

//! Opens the next file. If that fails, the present file stays open.
bool Recorder::openNext()
{
    const double now = m_clock.seconds();
    if (now < m_nextFileNotBefore)
        return false;
    LoggedText error;
    if (open(m_names.next(m_clock.wallTime(), m_filesBegun),
             RecordingFile::Existing::Refuse,
             &error)) {
        m_anyReading = false;
        return true;
    }
    m_nextFileNotBefore = now + retryInterval;
    Q_EMIT noted(
        QStringLiteral("WARNING recording: %1; it goes on in %2").arg(error.logged(), fileName()));
    return false;
}

void Recorder::setError(const LoggedText &text)
{
    const bool wasWell = m_error.isEmpty();
    m_error = text;
    if (wasWell && !text.isEmpty())
        Q_EMIT failed(text.logged());
    else if (!wasWell && text.isEmpty())
        Q_EMIT recovered();
}

void Recorder::startStream(const StreamHeader &header)
{
    const bool another = m_hasHeader && m_anyReading;
    m_header = header;
    // On a full disk no other file can be opened: the stream continues in this one under its own header.
    if (another && mayBeginFileForStream() && flush() && openNext()) {
        ++m_streamFiles;
        m_streamFileAt = m_clock.seconds();
    }
    m_hasHeader = true;
    m_headerDue = true;
    if (!isDetectorRecorded(header))
        m_toTell += QStringLiteral("WARNING the recording does not describe the detector, whose "
                                   "description is longer than a line may be");
    for (const QString &text : std::exchange(m_toTell, {}))
        Q_EMIT noted(text);
    const bool isUndated = m_options.datesArrival && !header.startTime.isValid();
    if (!isUndated)
        beginWithHeader(); // otherwise the first reading dates it
}

/*! Dates a stream whose header does not: by its time stamps if they count from 1970, and otherwise by the arrival of its
    first readings, the newest of which has just come. What they are apart is how long the others may have waited. */
void Recorder::dateStream(const ReadingBlock &readings)
{
    constexpr double resolution = 0.02, milli = 1e3,
                     furthest = 1e11; // s; the clock's ticks, and 3000 years
    if (const std::optional<double> stated = m_header.statedOrigin(readings.time(0))) {
        m_header.startTime = QDateTime::fromMSecsSinceEpoch(std::llround(*stated * milli), Qt::UTC);
        m_headerDue = true;
        return;
    }
    const double last = readings.time(readings.size() - 1);
    if (!(std::abs(last) < furthest))
        return;
    const QDateTime start = m_clock.wallTime().addMSecs(-qint64(std::llround(last * milli)));
    if (start.date().year() < 1 || start.date().year() > 9999)
        return;
    // A header that events brought already is followed by one with the date.
    m_header.startTime = start;
    m_header.startUncertainty =
        std::max(resolution, std::round((last - readings.time(0)) * milli) / milli);
    m_headerDue = true;
}

bool Recorder::mayBeginFileForStream()
{
    if (m_streamFiles < maxStreamFiles)
        return m_streamFiles == 0 || m_clock.seconds() - m_streamFileAt >= shortestFile;
    if (!std::exchange(m_streamLimitSaid, true))
        Q_EMIT noted(
            QStringLiteral(
                "WARNING recording: the source started over %1 times; from now on everything goes "
                "to %2")
                .arg(maxStreamFiles)
                .arg(fileName()));
    return false;
}

void Recorder::addReadings(const ReadingBlock &readings)
{
    if (!m_hasHeader || readings.channels() != m_header.valuesPerReading())
        return;
    if (m_options.datesArrival && !m_header.startTime.isValid() && !readings.isEmpty())
        dateStream(readings);
    addHeaderIfDue();
    m_worker.add(readings, readingShape(m_header));
    m_anyReading = m_anyReading || !readings.isEmpty();
    // A flood of readings keeps the clock from ticking; what is due is written nevertheless.
    writeIfDue();
}

void Recorder::addEvent(const QString &text)
{
    QByteArray line;
    appendRecordingEvent(&line, text);
    addHeaderIfDue();
    m_worker.add(RecordingBatch::Entry::Kind::Lines, line);
}

void Recorder::addHeaderIfDue()
{
    if (std::exchange(m_headerDue, false))
        m_worker.add(RecordingBatch::Entry::Kind::Header,
                     recordingHeader(m_header, m_options.source));
}

//! Writes the header even if nothing follows it yet.
void Recorder::beginWithHeader()
{
    addHeaderIfDue();
    m_worker.add(RecordingBatch::Entry::Kind::Lines, {});
}

void Recorder::tick()
{
    writeIfDue();
}

void Recorder::writeIfDue()
{
    const bool isDue = m_clock.seconds() - m_flushedAt >= flushInterval;
    if ((isDue || m_worker.isStuck()) && flush() && isDue)
        rotateIfDue();
}

//! Returns false if the disk did not take everything; the rest stays for the next time.
bool Recorder::flush()
{
    if (!m_isRecording)
        return false;
    m_flushedAt = m_clock.seconds();
    m_worker.settle();
    const bool isWritten = keepFileInPlace() && writeWaiting();
    m_worker.setFile(m_file.get(), isWritten, cutSize());
    return isWritten;
}

//! Writes what waits, and begins another file where one is long enough. Returns false if text is left.
bool Recorder::writeWaiting()
{
    WaitingText &waiting = m_worker.text().waiting();
    bool cuts = cutSize() > 0;
    for (;;) {
        const qint64 room = std::max<qint64>(cutSize() - m_file->size(), 0);
        const qint64 size = cuts ? waiting.wholeAfter(room) : waiting.size();
        const qint64 written = m_file->append(waiting.data(), size);
        waiting.take(written);
        if (written < size || waiting.isEmpty())
            break;
        cuts = openNext();
        if (!cuts)
            continue; // what is left goes into this file
        waiting.beginFile({});
        m_anyReading = true;
    }
    setError(waiting.isEmpty() ? LoggedText() : writingError());
    return waiting.isEmpty();
}

//! Returns what the system says of the file.
LoggedText Recorder::writingError() const
{
    return LoggedText::of([this] {
        return tr("%1: %2").arg(m_file->path(), m_file->error().now());
    });
}

//! Returns the size at which files are cut to the line. Those of a smaller size are only begun once a second; 0 for these and for none.
qint64 Recorder::cutSize() const
{
    constexpr qint64 smallest = 1000000;
    return m_options.rotateBytes >= smallest ? m_options.rotateBytes : 0;
}

/*! Makes sure that the file can still be found under its path, and opens another one if not. What waits goes to the new
    file; what was written to the former one stays as it is. Returns false while no file can be opened. */
bool Recorder::keepFileInPlace()
{
    const RecordingFile::Displacement displacement = m_file->displacement();
    if (displacement == RecordingFile::Displacement::None)
        return true;
    const QString before = m_file->path();
    const QString path =
        QFileInfo::exists(before) ? m_names.next(m_clock.wallTime(), m_filesBegun) : before;
    QDir().mkpath(QFileInfo(path).absolutePath());
    const auto became = LoggedText::of([&] {
        return RecordingFile::text(displacement);
    });
    LoggedText error;
    if (!open(path, RecordingFile::Existing::Refuse, &error)) {
        setError(LoggedText::of([&] {
            return tr("%1 %2, and %3").arg(before, became.now(), error.now());
        }));
        return false;
    }
    const QString text =
        QStringLiteral("recording: %1 %2; it goes on in %3").arg(before, became.logged(), path);
    QByteArray event;
    appendRecordingEvent(&event, text);
    m_worker.text().waiting().beginFile(event);
    Q_EMIT noted(QStringLiteral("WARNING %1").arg(text));
    return true;
}

void Recorder::rotateIfDue()
{
    const double age = m_clock.seconds() - m_fileStartedAt;
    const bool old = m_options.rotateSeconds > 0.0 && age >= m_options.rotateSeconds;
    const bool large = m_options.rotateBytes > 0 && m_file->size() >= m_options.rotateBytes;
    if (m_anyReading && age >= shortestFile && (old || large) && openNext()) {
        m_headerDue = true;
        beginWithHeader();
    }
}

bool Recorder::finish()
{
    if (!m_isRecording)
        return lostReadings() == 0;
    if (m_hasHeader)
        beginWithHeader();
    m_worker.settle();
    m_worker.text().appendLoss();
    flush();
    m_isRecording = false;
    m_worker.setFile(m_file.get(), false, 0);
    m_leftWaiting = m_worker.text().waiting().readings();
    const bool isInPlace = m_file->displacement() == RecordingFile::Displacement::None;
    const bool closed = m_file->close();
    if (!closed)
        setError(writingError());
    else if (isInPlace)
        Q_EMIT fileCompleted(m_file->path());
    return closed && lostReadings() == 0;
}

} // namespace Monitor
