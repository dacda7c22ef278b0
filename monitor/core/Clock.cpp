// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Clock.h"

namespace Monitor {

namespace {

constexpr int fullPace = 20; // milliseconds from tick to tick
constexpr int restingPace = 1000;
constexpr double untilRest =
    10.0; // s; longer than most instruments are silent between two readings

} // namespace

Clock::Clock(QObject *parent)
    : QObject(parent)
{
}

void Clock::stayAwake() { }

SystemClock::SystemClock(QObject *parent)
    : Clock(parent)
{
    m_elapsed.start();
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &SystemClock::restOrTick);
    m_timer.start(fullPace);
}

void SystemClock::stayAwake()
{
    m_askedAt = seconds();
    if (m_timer.interval() != fullPace)
        m_timer.start(fullPace);
}

void SystemClock::restOrTick()
{
    if (m_timer.interval() == fullPace && seconds() - m_askedAt > untilRest)
        m_timer.start(restingPace);
    Q_EMIT tick();
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
