// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Clock.h"

namespace Monitor {

namespace {

constexpr int fullPace = 20; // milliseconds from tick to tick
constexpr int backgroundPace = 100;
constexpr int restingPace = 1000;
constexpr double untilRest =
    10.0; // s; longer than most instruments are silent between two readings

} // namespace

Clock::Clock(QObject *parent)
    : QObject(parent)
{
}

void Clock::stayAwake() { }

void Clock::stayAwakeIfSeen() { }

void Clock::setBackground(bool on)
{
    if (on == m_isBackground)
        return;
    m_isBackground = on;
    Q_EMIT backgroundChanged(on);
}

SystemClock::SystemClock(QObject *parent)
    : Clock(parent)
{
    m_elapsed.start();
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &SystemClock::tickOn);
    connect(this, &Clock::backgroundChanged, this, &SystemClock::tickAtPace);
    m_timer.start(fullPace);
}

void SystemClock::stayAwake()
{
    m_askedAt = seconds();
    if (m_timer.interval() != fullPace)
        m_timer.start(fullPace);
}

void SystemClock::stayAwakeIfSeen()
{
    m_askedIfSeenAt = seconds();
    if (m_timer.interval() == restingPace)
        tickAtPace();
}

//! Returns the milliseconds until the next tick.
int SystemClock::pace() const
{
    const double now = seconds();
    if (now - m_askedAt <= untilRest)
        return fullPace;
    if (now - m_askedIfSeenAt > untilRest)
        return restingPace;
    return isBackground() ? backgroundPace : fullPace;
}

void SystemClock::tickAtPace()
{
    const int wanted = pace();
    if (m_timer.interval() != wanted)
        m_timer.start(wanted);
}

void SystemClock::tickOn()
{
    tickAtPace();
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
