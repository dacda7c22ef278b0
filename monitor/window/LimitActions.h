// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

#include <functional>

class QAction;
class QMenu;
class QWidget;

namespace Corvale_Qt {
class RVXScope;
} // namespace Corvale_Qt

namespace Monitor {

class Alarms;
class DisplayTabs;
class Session;
struct StreamHeader;
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

    //! Draws the limits of a stream in a scope. They are those of readings, so that they have no place beside zeroed ones.
    static void drawLimits(const StreamHeader &header, Corvale_Qt::RVXScope &scope);
    //! Acknowledges the alarms of another session, too, and makes a sound for them.
    void watch(Session &session);
    //! Sets what makes a sound; the beep of the desktop at first.
    void setSound(std::function<void()> sound) { m_sound = std::move(sound); }

private:
    void edit();
    void refresh();
    void showLines();
    void soundIfDue();
    bool isUnacknowledged() const;

    Session &m_session;
    DisplayTabs &m_displays;
    WindowSettings &m_settings;
    QWidget *m_window;
    QVector<QPointer<Alarms>> m_watched; //!< of the sessions beside
    QAction *m_acknowledge;
    QAction *m_soundAction;
    std::function<void()> m_sound;
    double m_soundedAt;
};

} // namespace Monitor
