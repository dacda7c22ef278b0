// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

namespace Monitor {

class Clock;

/*! Measures the turns of the application's event loop. A turn begins with the first event that is handled and ends when the
    loop looks for new ones; what a dialog's own loop does counts as turns, too. It costs a comparison for each
    event, and a question to the system for each turn. */
class LoopWatch : public QObject
{
    Q_OBJECT

public:
    //! A turn that takes this many seconds is announced.
    static constexpr double stall = 1.0;
    //! The seconds in which a window is built and painted for the first time.
    static constexpr double usualBeginning = 2.0;

    /*! Watches from now on, and counts the turns that begin after this many seconds. There must be an application; \a clock
        must outlive the watch. */
    explicit LoopWatch(Clock &clock, double beginning = usualBeginning, QObject *parent = nullptr);

    //! Returns how many turns were counted.
    qint64 turns() const { return m_turns; }
    //! Returns the longest time of a turn, in seconds.
    double longestTime() const { return m_longestTime; }
    //! Returns the most processor time that a turn has used, in seconds.
    double mostProcessorTime() const { return m_mostProcessorTime; }
    //! Returns these numbers as a line for a person.
    QString summary() const;

Q_SIGNALS:
    //! Emitted with a line for a person after a turn that took a second or more.
    void stalled(const QString &text);

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    void endTurn();

    Clock &m_clock;
    const double m_countedFrom;
    bool m_isInTurn = false;
    double m_began = 0.0;
    //! The processor time of the thread when the last turn ended. Waiting uses none.
    double m_processorTime;
    qint64 m_turns = 0;
    double m_longestTime = 0.0;
    double m_mostProcessorTime = 0.0;
};

} // namespace Monitor
