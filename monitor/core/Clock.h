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
    //! Asks for ticks at full pace as long as somebody sees the readings, and for ten a second in the background.
    virtual void stayAwakeIfSeen();

    //! Says that nobody sees the readings, as while the window is minimised, or that somebody does, as at first.
    void setBackground(bool on);
    //! Returns whether nobody sees the readings, so that what comes may be used a tenth of a second later.
    bool isBackground() const { return m_isBackground; }

Q_SIGNALS:
    //! Emitted regularly while time passes, see stayAwake().
    void tick();
    //! Emitted when isBackground() changed.
    void backgroundChanged(bool isBackground);

protected:
    explicit Clock(QObject *parent = nullptr);

private:
    bool m_isBackground = false;
};

/*! The machine's clock; ticks 50 times a second, and once a second when nobody has asked it to stay awake for 10 s. In the background it
    ticks ten times a second unless somebody asks for the full pace all the same. */
class SystemClock : public Clock
{
    Q_OBJECT

public:
    explicit SystemClock(QObject *parent = nullptr);
    double seconds() const override;
    QDateTime wallTime() const override;
    void stayAwake() override;
    void stayAwakeIfSeen() override;

private:
    int pace() const;
    void tickAtPace();
    void tickOn();

    QElapsedTimer m_elapsed;
    QTimer m_timer{this};
    double m_askedAt = 0.0; //!< when somebody last wanted ticks at full pace
    double m_askedIfSeenAt = 0.0; //!< the same as long as somebody sees the readings
};

} // namespace Monitor
