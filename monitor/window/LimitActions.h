// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

#include <functional>

class QAction;
class QMenu;
class QWidget;

namespace Monitor {

class DisplayTabs;
class Session;
class WindowSettings;

/*! What an operator does with limits: menu entries that set them, acknowledge alarms and switch the sound. Keeps the limits that
    the operator chose in the settings, and draws the limits of the stream in the scope. */
class LimitActions : public QObject
{
    Q_OBJECT

public:
    //! Adds the entries to \a menu; \a window is the parent of the dialog.
    LimitActions(Session &session,
                 DisplayTabs &displays,
                 WindowSettings &settings,
                 QMenu *menu,
                 QWidget *window);

    //! Sets what makes a sound; the beep of the desktop at first.
    void setSound(std::function<void()> sound) { m_sound = std::move(sound); }

private:
    void edit();
    void refresh();
    void showLines();
    void soundIfDue();

    Session &m_session;
    DisplayTabs &m_displays;
    WindowSettings &m_settings;
    QWidget *m_window;
    QAction *m_acknowledge;
    QAction *m_soundAction;
    std::function<void()> m_sound;
    double m_soundedAt;
};

} // namespace Monitor
