// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Clock.h"

namespace Monitor {

Clock::Clock(QObject *parent)
    : QObject(parent)
{
}

SystemClock::SystemClock(QObject *parent)
    : Clock(parent)
{
    constexpr int tickMilliseconds = 20;
    m_elapsed.start();
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &Clock::tick);
    m_timer.start(tickMilliseconds);
}

double SystemClock::seconds() const
{
    return double(m_elapsed.nsecsElapsed()) * 1e-9;
}

QDateTime SystemClock::wallTime() const
{
    return QDateTime::currentDateTimeUtc();
}

} // namespace Monitor
