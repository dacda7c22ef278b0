// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace Monitor {

//! The only source of time in the program. Whatever waits uses it, so that a test can move time by hand.
class Clock : public QObject
{
    Q_OBJECT

public:
    //! Returns the seconds since an arbitrary moment; never decreases.
    virtual double seconds() const = 0;
    //! Returns the date and time of day in UTC.
    virtual QDateTime wallTime() const = 0;
    //! Asks for ticks at full pace. A clock that nobody has asked for a while may tick once a second only.
    virtual void stayAwake();

Q_SIGNALS:
    //! Emitted regularly while time passes, see stayAwake().
    void tick();

protected:
    explicit Clock(QObject *parent = nullptr);
};

//! The machine's clock; ticks 50 times a second, and once a second when nobody has asked it to stay awake for 10 s.
class SystemClock : public Clock
{
    Q_OBJECT

public:
    explicit SystemClock(QObject *parent = nullptr);
    double seconds() const override;
    QDateTime wallTime() const override;
    void stayAwake() override;

private:
    void restOrTick();

    QElapsedTimer m_elapsed;
    QTimer m_timer{this};
    double m_askedAt = 0.0; //!< when somebody last wanted ticks at full pace
};

} // namespace Monitor
