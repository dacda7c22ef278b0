// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/LineSource.h"

#include "monitor/core/Clock.h"

#include <cmath>

namespace Monitor {

LineSource::LineSource(Clock &clock, QObject *parent)
    : Source(clock, parent)
    , m_sink(*this)
    , m_protocol(m_sink)
{
    m_retryWake.setSingleShot(true);
    m_retryWake.setTimerType(Qt::PreciseTimer);
    connect(&clock, &Clock::tick, this, &LineSource::tick);
    connect(&m_retryWake, &QTimer::timeout, this, &LineSource::tick);
}

LineCounts LineSource::counts() const
{
    return m_protocol.counts();
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
    return m_longestSilence > 0.0 && state() == State::Running && m_heardAt
        && clock().seconds() - *m_heardAt >= m_longestSilence;
}

void LineSource::connected()
{
    m_retryAt.reset();
    m_heardAt.reset();
    m_splitter.clear();
    m_protocol.beginStream();
    setState(State::Running, description());
}

double LineSource::arrivalTime() const
{
    return clock().seconds() - m_startedAt;
}

void LineSource::takeBytes(std::string_view bytes)
{
    // Only a connection that brings bytes is a good one; another may be closed again at once.
    m_backoff.reset();
    clock().stayAwake();
    m_heardAt = clock().seconds();
    Q_EMIT bytesArrived(QByteArray::fromRawData(bytes.data(), int(bytes.size())));
    m_protocol.setArrivalTime(arrivalTime());
    m_splitter.feed(bytes, [this](std::string_view line, bool tooLong) {
        m_protocol.takeLine(line, tooLong);
    });
    m_sink.flush();
}

void LineSource::endStream()
{
    m_splitter.finish([this](std::string_view line, bool tooLong) {
        m_protocol.takeLine(line, tooLong);
    });
    m_protocol.finish();
    m_sink.flush();
}

void LineSource::lost(const LoggedText &text, bool inOrder)
{
    if (!m_reconnecting) {
        endStream();
        setState(inOrder ? State::Finished : State::Failed, text);
        return;
    }
    endConnection();
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

//! Drops an unfinished line of a connection that is gone: a number in it may have lost digits.
void LineSource::endConnection()
{
    m_splitter.clear();
    m_protocol.finish();
    m_sink.flush();
}

void LineSource::peerLeft(const LoggedText &text, bool inOrder)
{
    if (!m_reconnecting) {
        lost(text, inOrder);
        return;
    }
    endConnection();
    m_heardAt.reset();
    setState(State::Connecting, LoggedText::of([&] {
                 return tr("%1; waiting for the next one").arg(text.now());
             }));
}

void LineSource::ended()
{
    endStream();
    setState(State::Finished, LoggedText::of([this] {
                 return tr("reached the end of %1").arg(description());
             }));
}

} // namespace Monitor
