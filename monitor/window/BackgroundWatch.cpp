// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/BackgroundWatch.h"

#include "monitor/core/Clock.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace Monitor {

namespace {

bool isSeen(const QWindow *window)
{
    return window->isExposed() && !(window->windowStates() & Qt::WindowMinimized);
}

} // namespace

BackgroundWatch::BackgroundWatch(Clock &clock, QWidget *window)
    : QObject(window)
    , m_clock(clock)
    , m_window(*window)
{
    connect(&clock, &Clock::tick, this, &BackgroundWatch::look);
}

void BackgroundWatch::look()
{
    const QWindow *own = m_window.windowHandle();
    m_wasSeen = m_wasSeen || (own && isSeen(own));
    if (!m_wasSeen)
        return;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    m_clock.setBackground(std::none_of(windows.begin(), windows.end(), isSeen));
}

} // namespace Monitor
