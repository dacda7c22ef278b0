// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/PlotRoom.h"

#include "monitor/window/WindowSettings.h"
#include <corvale_qt/scope/RVXScope.h>

#include <QAction>
#include <QDockWidget>
#include <QEvent>

namespace Monitor {

namespace {

//! In a window that is less high, the plot gets the room of the log and of the controls.
constexpr int roomyHeight = 700;
const QLatin1String hiddenKey("log-hidden-for-room");

} // namespace

PlotRoom::PlotRoom(QWidget *window, QDockWidget *log, Corvale_Qt::RVXScope *scope)
    : QObject(window)
    , m_window(window)
    , m_log(log)
    , m_scope(scope)
{
    connect(log->toggleViewAction(), &QAction::triggered, this, [this] {
        m_hidLog = false; // from now on it is as the operator wants it
    });
}

void PlotRoom::begin(const WindowSettings &settings, bool isLogChosen)
{
    m_hidLog = m_log->isHidden() && !settings.text(hiddenKey).isEmpty();
    m_isSmall = m_window->height() < roomyHeight;
    if (m_isSmall)
        hideControls();
    else
        showLog();
    if (m_isSmall && !isLogChosen)
        hideLog();
    m_window->installEventFilter(this);
}

void PlotRoom::save(WindowSettings &settings) const
{
    const bool isHidden = m_hidLog && m_log && m_log->isHidden();
    settings.setText(hiddenKey, isHidden ? QStringLiteral("yes") : QString());
}

bool PlotRoom::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window || event->type() != QEvent::Resize || !m_log || !m_scope)
        return false;
    const bool isSmall = m_window->height() < roomyHeight;
    if (isSmall == m_isSmall)
        return false;
    m_isSmall = isSmall;
    if (isSmall) {
        hideControls();
        hideLog();
    } else {
        showLog();
        if (!m_isShared)
            showControls();
    }
    return false;
}

void PlotRoom::setShared(bool shared)
{
    if (shared == m_isShared)
        return;
    m_isShared = shared;
    if (shared)
        hideControls();
    else if (!m_isSmall)
        showControls();
}

void PlotRoom::hideLog()
{
    if (m_log->isHidden())
        return;
    m_hidLog = true;
    m_log->hide();
}

void PlotRoom::showLog()
{
    if (m_hidLog)
        m_log->show();
    m_hidLog = false;
}

void PlotRoom::hideControls()
{
    m_hidControls = m_hidControls || m_scope->areControlsVisible();
    m_scope->setControlsVisible(false);
}

void PlotRoom::showControls()
{
    if (m_hidControls)
        m_scope->setControlsVisible(true);
    m_hidControls = false;
}

} // namespace Monitor
