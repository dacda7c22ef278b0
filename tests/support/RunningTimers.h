// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QTimer>

#include <algorithm>

//! Returns how many timers of an object and its children are running.
inline int runningTimers(const QObject &object)
{
    const QList<QTimer *> timers = object.findChildren<QTimer *>();
    return int(std::count_if(timers.begin(), timers.end(),
                             [](const QTimer *timer) { return timer->isActive(); }));
}
