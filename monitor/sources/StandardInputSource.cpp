// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/StandardInputSource.h"

#include "monitor/core/Clock.h"
#include "monitor/core/LoggedText.h"

#include <QElapsedTimer>
#include <QPointer>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace Monitor {

namespace {

const QByteArray kName = QByteArrayLiteral("standard input");

} // namespace

StandardInputSource::StandardInputSource(Clock &clock, int descriptor, QObject *parent)
    : LineSource(clock, parent)
    , m_descriptor(descriptor)
    , m_images(*this)
    , m_reader(
          [this](const PgmImage &image) {
              takeImage(image);
          },
          [this](const LoggedText &fault) {
              m_images.refuse(Refusal::Unreadable, fault, kName);
          })
    , m_lastTime(-std::numeric_limits<double>::infinity())
    , m_notifier(descriptor, QSocketNotifier::Read)
{
    m_notifier.setEnabled(false);
    connect(&m_notifier, &QSocketNotifier::activated, this, &StandardInputSource::readSome);
    // Standard input cannot be opened again.
    setReconnecting(false);
}

QString StandardInputSource::description() const
{
    return QStringLiteral("standard input"); // as recordings have it, in every language
}

LineCounts StandardInputSource::counts() const
{
    return m_content == Content::Images ? m_images.counts() : LineSource::counts();
}

void StandardInputSource::open()
{
#ifdef F_SETPIPE_SZ
    // An instrument goes on writing while the window is painted. Anything but a pipe refuses this.
    constexpr int roomOfPipe = 1024 * 1024;
    ::fcntl(m_descriptor, F_SETPIPE_SZ, roomOfPipe);
    m_roomOfPipe = std::size_t(std::max(::fcntl(m_descriptor, F_GETPIPE_SZ), 0));
#endif
    connected();
    m_notifier.setEnabled(true);
}

void StandardInputSource::close()
{
    m_notifier.setEnabled(false);
    m_isResting = false;
}

void StandardInputSource::poll()
{
    if (!std::exchange(m_isResting, false))
        return;
    const QPointer<StandardInputSource> alive(this); // what hears of readings may close the source
    m_notifier.setEnabled(true);
    readSome();
    if (alive)
        readGathered();
}

/*! Leaves in the pipe what comes before the next tick, if it has room for several times as much as came in this turn. After a silence the
    next bytes are awaited instead, since ticks may be rare by then. */
void StandardInputSource::restUntilTick()
{
    constexpr std::size_t timesTheRoom = 4;
    const bool hasRoom = m_cameNow > 0 && timesTheRoom * m_cameNow <= m_roomOfPipe;
    if (!hasRoom || !m_notifier.isEnabled() || !mayWait())
        return;
    m_notifier.setEnabled(false);
    m_isResting = true;
}

/*! Reads what has come, but not for long, so that a flood of lines leaves time for the window. After a long turn of the event
    loop more has come than one piece; such pieces are read in a thread, each while the one before is used. */
void StandardInputSource::readSome()
{
    constexpr qint64 longest = 20; // ms
    const QPointer<StandardInputSource> alive(this); // what hears of readings may close the source
    QElapsedTimer timer;
    timer.start();
    m_cameNow = 0;
    while (alive && readPiece() && !timer.hasExpired(longest)) { }
    if (alive)
        takeRest();
    if (alive)
        restUntilTick();
}

//! Reads one piece. Returns false if nothing more is there now.
bool StandardInputSource::readPiece()
{
    // Another read of an empty pipe would wait.
    pollfd ready{m_descriptor, POLLIN, 0};
    if (!m_notifier.isEnabled() || ::poll(&ready, 1, 0) <= 0)
        return false;
    if (m_piece.empty())
        m_piece = takeSpare();
    m_piece.resize(livePieceSize);
    const ssize_t size = ::read(m_descriptor, m_piece.data(), livePieceSize);
    if (size > 0) {
        m_cameNow += std::size_t(size);
        takePiece(std::size_t(size));
        return true;
    }
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return false;
    m_notifier.setEnabled(false);
    if (size == 0)
        endInput();
    else
        lost(LoggedText::of([why = LoggedText::ofSystem(qt_error_string(errno))] {
            return tr("reading standard input failed: %1").arg(why.now());
        }));
    return false;
}

//! Takes the first bytes of the piece. A large one is probably not the last that is there now.
void StandardInputSource::takePiece(std::size_t size)
{
    constexpr std::size_t worthAThread = livePieceSize / 2;
    if (m_content == Content::Lines && size >= worthAThread)
        takeAhead(std::exchange(m_piece, {}), size);
    else
        take({m_piece.data(), size});
}

void StandardInputSource::take(std::string_view bytes)
{
    if (m_content == Content::Lines) {
        takeBytes(bytes);
        return;
    }
    if (m_content == Content::Images) {
        takeImages(bytes);
        return;
    }
    m_begin += bytes;
    const std::optional<bool> areImages = PgmReader::suits(m_begin);
    if (!areImages)
        return;
    m_content = *areImages ? Content::Images : Content::Lines;
    take(std::exchange(m_begin, {}));
}

//! Takes bytes of images. What follows an image whose end is not known cannot be read.
void StandardInputSource::takeImages(std::string_view bytes)
{
    clock().stayAwake();
    m_reader.feed(bytes);
    if (!m_reader.isLost())
        return;
    m_notifier.setEnabled(false);
    lost(LoggedText::of([this] {
        return tr("standard input: what follows image %1 cannot be read")
            .arg(m_images.counts().lines);
    }));
}

void StandardInputSource::takeImage(const PgmImage &image)
{
    const double time = image.time.value_or(arrivalTime());
    if (time < m_lastTime) {
        m_images.refuse(Refusal::TimeBackwards, {}, kName);
        return;
    }
    m_lastTime = time;
    m_images.count();
    m_images.show(time, true, image);
}

void StandardInputSource::endInput()
{
    if (m_content == Content::Images)
        m_reader.finish();
    else if (!m_begin.empty())
        takeBytes(m_begin);
    ended();
}

} // namespace Monitor
