// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LoopWatch.h"

#include "monitor/core/Clock.h"
#include "monitor/core/Text.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <algorithm>
#include <ctime>
#include <utility>

namespace Monitor {

namespace {

//! Returns the processor time that this thread has used, in seconds.
double processorTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}

QString inMilliseconds(double seconds)
{
    return QString::number(1e3 * seconds, 'f', 1);
}

} // namespace

LoopWatch::LoopWatch(Clock &clock, double beginning, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_countedFrom(clock.seconds() + beginning)
    , m_processorTime(processorTime())
{
    // The first of these signals after the events is the end of a turn. Which of them that is depends on the platform.
    const auto *dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &LoopWatch::endTurn);
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, &LoopWatch::endTurn);
    QCoreApplication::instance()->installEventFilter(this);
}

bool LoopWatch::eventFilter(QObject *, QEvent *)
{
    if (!m_isInTurn) {
        m_isInTurn = true;
        m_began = m_clock.seconds();
    }
    return false;
}

void LoopWatch::endTurn()
{
    if (!m_isInTurn)
        return;
    m_isInTurn = false;
    const double now = processorTime();
    const double used = now - std::exchange(m_processorTime, now);
    if (m_began < m_countedFrom)
        return;
    const double time = m_clock.seconds() - m_began;
    ++m_turns;
    m_longestTime = std::max(m_longestTime, time);
    m_mostProcessorTime = std::max(m_mostProcessorTime, used);
    if (time >= stall)
        Q_EMIT stalled(tr("the program stood still for %1 s, and used the processor for %2 s of it")
                           .arg(time, 0, 'f', 1)
                           .arg(used, 0, 'f', 1));
}

QString LoopWatch::summary() const
{
    return Text::countedInEnglish("%n turn(s) of the event loop; one took %1 ms at most, and used "
                                  "the processor for %2 ms at most",
                                  nullptr,
                                  m_turns)
        .arg(inMilliseconds(m_longestTime), inMilliseconds(m_mostProcessorTime));
}

} // namespace Monitor
