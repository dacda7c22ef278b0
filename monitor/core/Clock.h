// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace Monitor {

//! The one notion of time: everything that waits for time does so by this clock, and tests move it.
class Clock : public QObject
{
    Q_OBJECT

public:
    //! Seconds since some moment; never goes back.
    virtual double seconds() const = 0;
    virtual QDateTime wallTime() const = 0;

Q_SIGNALS:
    //! Time has passed.
    void tick();

protected:
    explicit Clock(QObject *parent = nullptr);
};

//! The machine's clock; ticks 50 times a second.
class SystemClock : public Clock
{
    Q_OBJECT

public:
    explicit SystemClock(QObject *parent = nullptr);
    double seconds() const override;
    QDateTime wallTime() const override;

private:
    QElapsedTimer m_elapsed;
    QTimer m_timer;
};

} // namespace Monitor
