// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMenu>

class QActionGroup;

namespace Monitor {

class DisplayTabs;
class Session;
class WindowSettings;

//! The menu "Measure": what is done with the readings before they are shown.
class MeasureMenu : public QMenu
{
    Q_OBJECT

public:
    MeasureMenu(Session &session, DisplayTabs &displays, WindowSettings &settings, QWidget *window);

private:
    void addBaseline();
    void addAverages();
    void addMarkers();
    void refresh();

    Session &m_session;
    DisplayTabs &m_displays;
    QAction *m_zero = nullptr;
    QAction *m_background = nullptr;
    QAction *m_remove = nullptr;
    QAction *m_markers = nullptr;
    QActionGroup *m_averages = nullptr;
};

} // namespace Monitor
