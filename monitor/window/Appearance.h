// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QPalette>

class QActionGroup;
class QMenu;

namespace Monitor {

class WindowSettings;

//! The colours of the program: light, dark, or those of the desktop. The choice is kept.
class Appearance : public QObject
{
    Q_OBJECT

public:
    enum class Choice {
        Desktop,
        Light,
        Dark,
    };

    //! Adds a submenu with the choices to \a menu and applies the one that was kept.
    Appearance(WindowSettings &settings, QMenu *menu, QObject *parent);
    ~Appearance() override;

    //! Shows the program in these colours, at once and in every window.
    void choose(Choice choice);
    Choice choice() const { return m_choice; }

private:
    void apply();

    WindowSettings &m_settings;
    QActionGroup *m_actions;
    const QPalette m_desktopPalette;
    const QString m_desktopStyle;
    Choice m_choice = Choice::Desktop;
};

} // namespace Monitor
