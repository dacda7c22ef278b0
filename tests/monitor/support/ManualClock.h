// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/Clock.h"

//! A clock that only a test moves.
class ManualClock : public Monitor::Clock
{
public:
    double seconds() const override { return m_seconds; }
    QDateTime wallTime() const override
    {
        return QDateTime(QDate(2026, 3, 1), QTime(12, 0), Qt::UTC)
            .addMSecs(qint64((m_seconds + m_wallOffset) * 1000.0));
    }
    //! Sets the date and the time of day back or forward, as a person or a time server does.
    void setWallTime(const QDateTime &time)
    {
        m_wallOffset += 1e-3 * double(wallTime().msecsTo(time));
    }
    void stayAwake() override { ++timesKeptAwake; }
    //! Lets \a seconds pass, in ticks of 20 ms.
    void advance(double seconds)
    {
        constexpr double step = 0.02;
        const double end = m_seconds + seconds;
        while (m_seconds + step < end) {
            m_seconds += step;
            Q_EMIT tick();
        }
        m_seconds = end;
        Q_EMIT tick();
    }
    //! Lets \a seconds pass without ticks, as in a busy event loop.
    void advanceSilently(double seconds) { m_seconds += seconds; }

    int timesKeptAwake = 0;

private:
    double m_seconds = 100.0;
    double m_wallOffset = 0.0; // s
};
