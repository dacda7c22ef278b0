// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMenu>
#include <QPointer>

class QDockWidget;

namespace Monitor {

class BigNumbers;
class DisplayTabs;
class LatestValuePanel;
class Session;
class WindowSettings;

//! The menu "View": displays, panels and how the window looks.
class ViewMenu : public QMenu
{
    Q_OBJECT

public:
    ViewMenu(Session &session,
             DisplayTabs &displays,
             LatestValuePanel &values,
             WindowSettings &settings,
             QWidget *window);

    //! Adds the entry that shows and hides a panel; \a text has its mnemonic.
    void addPanel(QDockWidget *panel, const QString &text);
    void addPanel(QAction *action);

private:
    void addPause();
    void addSpan();
    void addTimeAxis(WindowSettings &settings);
    void addDisplays();
    void addWindowEntries(WindowSettings &settings);
    void offerDisplays();
    void showBigNumbers();
    void setFullScreen(bool on);

    Session &m_session;
    DisplayTabs &m_displays;
    LatestValuePanel &m_values;
    QWidget *m_window;
    QList<QAction *> m_displayActions;
    QAction *m_panelsEnd = nullptr;
    QPointer<BigNumbers> m_bigNumbers;
};

} // namespace Monitor
