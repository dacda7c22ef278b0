// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QList>
#include <QRect>

class QWidget;

namespace Monitor {

//! The places that screens leave for windows, without panels of the desktop.
QList<QRect> usableScreens();
/*! Returns \a frame, the outer rectangle of a window, moved and cut so that it lies on one screen: on the screen that shows most
    of it, or on the first if none shows it, as after a screen was unplugged. */
QRect fitted(const QRect &frame, const QList<QRect> &screens);
//! Moves and resizes a window so that its frame is on a screen.
void fitToScreen(QWidget *window);

} // namespace Monitor
