// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

class QWidget;

namespace Monitor {

class Clock;

/*! Tells the clock whether any window of the program can be seen. It looks at every tick, since displays in windows of their own count as
    well; so what nobody saw is up to date a tenth of a second after a window is back. */
class BackgroundWatch : public QObject
{
public:
    //! Begins once \a window has been on the screen; it becomes the owner.
    BackgroundWatch(Clock &clock, QWidget *window);

private:
    void look();

    Clock &m_clock;
    const QWidget &m_window;
    bool m_wasSeen = false;
};

} // namespace Monitor
