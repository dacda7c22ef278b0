// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

//! Moves the mouse to \a place in a widget, as an event, since a cursor cannot leave the screen.
inline void moveMouse(QWidget *over, const QPoint &place, Qt::MouseButtons buttons = {},
                      Qt::KeyboardModifiers modifiers = {})
{
    const QPoint onScreen = over->mapToGlobal(place);
    QMouseEvent move(QEvent::MouseMove, place, onScreen, Qt::NoButton, buttons, modifiers);
    QCoreApplication::sendEvent(over, &move);
}

//! Turns the wheel at \a place in a widget by \a angle eighths of a degree; 120 is a notch away from the user.
inline void turnWheel(QWidget *over, const QPoint &place, int angle,
                      Qt::KeyboardModifiers modifiers = {})
{
    const QPoint onScreen = over->mapToGlobal(place), turned(0, angle);
    QWheelEvent turn(place, onScreen, {}, turned, {}, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(over, &turn);
}
