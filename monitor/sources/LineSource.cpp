// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/LineSource.h"

#include "monitor/core/Clock.h"

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <variant>

namespace Monitor {

LineSource::LineSource(Clock &clock, QObject *parent)
    : Source(clock, parent)
{
    m_retryWake.setSingleShot(true);
    m_retryWake.setTimerType(Qt::PreciseTimer);
    connect(&clock, &Clock::tick, this, &LineSource::tick);
    connect(&m_retryWake, &QTimer::timeout, this, &LineSource::tick);
    connect(&clock, &Clock::backgroundChanged, this, &LineSource::tick);
}

void LineSource::start()
{
    m_startedAt = clock().seconds();
    setState(State::Connecting, LoggedText::of([this] {
                 return tr("opening %1").arg(description());
             }));
    open();
}

void LineSource::poll() { }

void LineSource::tick()
{
    const QPointer<LineSource> alive(this); // what hears of readings may delete the source
    readGathered();
    if (!alive)
        return;
    if (m_retryAt && clock().seconds() >= *m_retryAt) {
        m_retryAt.reset();
        open();
    } else if (isSilentTooLong()) {
        close();
        lost(LoggedText::of([this] {
            return tr("%1 has been silent for %2 s")
                .arg(description(), QString::number(m_longestSilence));
        }));
    } else if (state() == State::Running) {
        poll();
    }
}

bool LineSource::isSilentTooLong() const
{
    return m_longestSilence > 0.0 && state() == State::Running && m_heardAt && !isTakingLast()
        && clock().seconds() - *m_heardAt >= m_longestSilence;
}

void LineSource::connected()
{
    m_retryAt.reset();
    m_heardAt.reset();
    const QPointer<LineSource> alive(this);
    takeAllRest();
    if (alive)
        tell(m_intake.begin());
    if (alive)
        setState(State::Running, description());
}

double LineSource::arrivalTime() const
{
    return clock().seconds() - m_startedAt;
}

void LineSource::takeBytes(std::string_view bytes)
{
    noteBytes(bytes);
    if (mayWait() && m_gathered.size() + bytes.size() < livePieceSize) { // a flood is read at once
        m_gathered.insert(m_gathered.end(), bytes.begin(), bytes.end());
        return;
    }
    const QPointer<LineSource> alive(this);
    takeAllRest();
    if (alive)
        tell(m_intake.read(bytes, arrivalTime()));
}

//! Reads all that came before what comes now.
void LineSource::takeAllRest()
{
    const QPointer<LineSource> alive(this);
    takeRest();
    if (alive)
        readGathered();
}

bool LineSource::mayWait() const
{
    return clock().isBackground() && m_statesTimes && m_intake.pending() == 0;
}

void LineSource::readGathered()
{
    if (m_gathered.empty())
        return;
    LineIntake::Piece piece = m_intake.read({m_gathered.data(), m_gathered.size()}, arrivalTime());
    m_gathered.clear();
    tell(std::move(piece));
}

void LineSource::takeAhead(std::vector<char> bytes, std::size_t size)
{
    noteBytes({bytes.data(), size});
    const QPointer<LineSource> alive(this);
    readGathered();
    if (!alive)
        return;
    LineIntake::Piece piece;
    piece.bytes = std::move(bytes);
    piece.size = size;
    piece.arrivalTime = arrivalTime();
    m_intake.add(std::move(piece));
    if (m_intake.pending() > 1)
        tell(m_intake.next());
}

void LineSource::takeRest()
{
    const QPointer<LineSource> alive(this);
    while (alive && m_intake.pending() > 0)
        tell(m_intake.next());
}

void LineSource::takeLast(const QByteArray &bytes, std::function<void()> then)
{
    m_last = Last{bytes, 0, std::move(then)};
    m_lastPieces.go();
}

//! Returns whether more is there.
bool LineSource::takePieceOfLast()
{
    if (!m_last)
        return false;
    const QPointer<LineSource> alive(this); // what hears of readings may close the source
    const QByteArray bytes = m_last->bytes;
    const int begin = m_last->taken;
    const int size = std::min(livePieceSize, bytes.size() - begin);
    m_last->taken += size;
    if (size > 0)
        takeBytes({bytes.constData() + begin, std::size_t(size)});
    if (!alive || begin + size < bytes.size())
        return bool(alive);
    const std::function<void()> then = std::move(m_last->then);
    m_last.reset();
    then();
    return false;
}

void LineSource::noteBytes(std::string_view bytes)
{
    // Only a connection that brings bytes is a good one; another may be closed again at once.
    m_backoff.reset();
    clock().stayAwakeIfSeen();
    m_heardAt = clock().seconds();
    Q_EMIT bytesArrived(QByteArray::fromRawData(bytes.data(), int(bytes.size())));
}

//! Reports what was read. The source may be deleted meanwhile.
void LineSource::tell(LineIntake::Piece piece)
{
    const QPointer<LineSource> alive(this);
    m_counts = piece.counts;
    m_statesTimes = piece.statesTimes;
    m_spare = std::move(piece.bytes);
    for (const Told &told : piece.told) {
        if (const auto *header = std::get_if<StreamHeader>(&told))
            Q_EMIT streamStarted(*header);
        else if (const auto *readings = std::get_if<ReadingBlock>(&told))
            Q_EMIT readingsArrived(*readings);
        else if (const auto *event = std::get_if<QString>(&told))
            Q_EMIT noted(*event);
        else if (const auto *line = std::get_if<RefusedLine>(&told))
            Q_EMIT lineRefused(*line);
        if (!alive)
            return;
    }
}

//! Reads what is left. Returns false if the source was deleted meanwhile.
bool LineSource::end(LineIntake::Rest rest)
{
    const QPointer<LineSource> alive(this);
    takeAllRest();
    if (alive)
        tell(m_intake.end(rest));
    return bool(alive);
}

void LineSource::lost(const LoggedText &text, bool inOrder)
{
    if (!m_reconnecting) {
        if (end(LineIntake::Rest::Read))
            setState(inOrder ? State::Finished : State::Failed, text);
        return;
    }
    if (!end(LineIntake::Rest::Dropped))
        return;
    const double wait = m_backoff.next();
    m_retryAt = clock().seconds() + wait;
    constexpr double msPerSecond = 1000.0;
    m_retryWake.start(int(std::ceil(wait * msPerSecond)));
    setState(State::Retrying, LoggedText::of([&] {
                 return tr("%1; trying again in %2 s").arg(text.now(), QString::number(wait));
             }));
}

void LineSource::lostBecause(const LoggedText &came, bool inOrder)
{
    lost(LoggedText::of([&] {
             return QStringLiteral("%1: %2").arg(description(), came.now());
         }),
         inOrder);
}

void LineSource::peerLeft(const LoggedText &text, bool inOrder)
{
    if (!m_reconnecting) {
        lost(text, inOrder);
        return;
    }
    if (!end(LineIntake::Rest::Dropped))
        return;
    m_heardAt.reset();
    setState(State::Connecting, LoggedText::of([&] {
                 return tr("%1; waiting for the next one").arg(text.now());
             }));
}

void LineSource::ended()
{
    if (!end(LineIntake::Rest::Read))
        return;
    setState(State::Finished, LoggedText::of([this] {
                 return tr("reached the end of %1").arg(description());
             }));
}

} // namespace Monitor
