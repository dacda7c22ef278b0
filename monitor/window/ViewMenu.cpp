// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ViewMenu.h"

#include "monitor/session/Session.h"
#include "monitor/window/Appearance.h"
#include "monitor/window/BigNumbers.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/Symbols.h"
#include "monitor/window/TimeAxisActions.h"
#include "monitor/window/ValueActions.h"
#include "monitor/window/WindowSettings.h"

#include <QDockWidget>

namespace Monitor {

ViewMenu::ViewMenu(Session &session,
                   DisplayTabs &displays,
                   LatestValuePanel &values,
                   WindowSettings &settings,
                   QWidget *window)
    : QMenu(tr("&View"), window)
    , m_session(session)
    , m_displays(displays)
    , m_values(values)
    , m_window(window)
{
    addPause();
    addSpan();
    addTimeAxis(settings);
    addSeparator();
    addDisplays();
    addSeparator();
    new ValueActions(session, displays, settings, addMenu(tr("Values and cha&nnels")), window);
    m_panelsEnd = addSeparator();
    addWindowEntries(settings);
    connect(this, &QMenu::aboutToShow, this, &ViewMenu::offerDisplays);
    connect(&session, &Session::streamStarted, this, &ViewMenu::offerDisplays);
    connect(&session, &Session::sourceReplaced, this, &ViewMenu::offerDisplays);
    offerDisplays();
}

void ViewMenu::addPause()
{
    QAction *pause = addAction(symbol(QStringLiteral("pause")), tr("&Pause"));
    pause->setObjectName(QStringLiteral("pause"));
    pause->setCheckable(true);
    // The keys also work in the separate windows of displays.
    pause->setShortcuts({QKeySequence(Qt::Key_Space), QKeySequence(Qt::Key_Pause)});
    pause->setShortcutContext(Qt::ApplicationShortcut);
    connect(pause, &QAction::toggled, &m_session, &Session::setPaused);
    connect(&m_session, &Session::pausedChanged, pause, &QAction::setChecked);
}

void ViewMenu::addSpan()
{
    QAction *span = addAction(symbol(QStringLiteral("time")),
                              tr("&Time span"),
                              &m_displays,
                              &DisplayTabs::editSpan);
    span->setObjectName(QStringLiteral("span"));
    span->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_T));
    span->setShortcutContext(Qt::ApplicationShortcut);
}

void ViewMenu::addTimeAxis(WindowSettings &settings)
{
    auto *axis = new TimeAxisActions(m_session, *m_displays.scope(), this);
    axis->choose(settings.timeAxis());
    connect(axis, &TimeAxisActions::chosen, this, [&settings](const QString &choice) {
        settings.setTimeAxis(choice);
    });
}

void ViewMenu::addDisplays()
{
    const QVector<QPair<QString, QString>> displays = {
        {QStringLiteral("strip"), tr("&Strip chart")},
        {QStringLiteral("scope"), tr("S&cope")},
        {QStringLiteral("histogram"), tr("&Histogram")},
        {QStringLiteral("profile"), tr("2D pro&file")},
        {QStringLiteral("position"), tr("P&osition")},
        {QStringLiteral("spots"), tr("Spot &map")},
        {QStringLiteral("errors"), tr("Position &errors")}};
    for (const auto &display : displays) {
        const QString name = display.first;
        QAction *action = addAction(display.second, this, [this, name] {
            m_displays.showDisplay(name);
        });
        action->setObjectName(name);
        action->setShortcut(QKeySequence(Qt::ALT + Qt::Key_1 + m_displayActions.size()));
        m_displayActions.append(action);
    }
}

//! Enables the entries of the displays that the stream has data for.
void ViewMenu::offerDisplays()
{
    for (QAction *action : qAsConst(m_displayActions))
        action->setEnabled(m_displays.offers(action->objectName()));
}

void ViewMenu::addPanel(QDockWidget *panel, const QString &text)
{
    QAction *action = panel->toggleViewAction();
    action->setText(text);
    addPanel(action);
}

void ViewMenu::addPanel(QAction *action)
{
    insertAction(m_panelsEnd, action);
}

void ViewMenu::addWindowEntries(WindowSettings &settings)
{
    QAction *full = addAction(symbol(QStringLiteral("fullscreen")), tr("F&ull screen"));
    full->setObjectName(QStringLiteral("fullScreen"));
    full->setCheckable(true);
    full->setShortcut(QKeySequence(Qt::Key_F11));
    connect(full, &QAction::toggled, this, &ViewMenu::setFullScreen);
    QAction *big = addAction(symbol(QStringLiteral("numbers")),
                             tr("&Big numbers"),
                             this,
                             &ViewMenu::showBigNumbers);
    big->setObjectName(QStringLiteral("bigNumbers"));
    big->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_B));
    new Appearance(settings, this, this);
}

void ViewMenu::setFullScreen(bool on)
{
    m_window->setWindowState(on ? m_window->windowState() | Qt::WindowFullScreen
                                : m_window->windowState() & ~Qt::WindowFullScreen);
}

void ViewMenu::showBigNumbers()
{
    if (!m_bigNumbers)
        m_bigNumbers = new BigNumbers(m_session, m_displays, m_values, m_window);
    m_bigNumbers->show();
    m_bigNumbers->raise();
    m_bigNumbers->activateWindow();
}

} // namespace Monitor
