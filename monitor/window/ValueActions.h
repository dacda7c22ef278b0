// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

class QActionGroup;
class QMenu;

namespace Monitor {

class DisplayTabs;
class Session;
struct StreamHeader;
class ValueAxisDialog;
class WindowSettings;

/*! The menu entries that say how values and channels are shown: the value axis, the legend, names under bars, the colours.
    What is chosen is kept from one start to the next. */
class ValueActions : public QObject
{
    Q_OBJECT

public:
    //! Adds the entries to \a menu. Session, displays and settings must outlive it.
    ValueActions(Session &session,
                 DisplayTabs &displays,
                 WindowSettings &settings,
                 QMenu *menu,
                 QWidget *window);

private:
    QString leftUnit(const StreamHeader &header) const;
    void keepRange(double minimum, double maximum);
    void restoreRange(const StreamHeader &header);
    void addLegend(QMenu *menu);
    void addBarNames(QMenu *menu);
    void addColours(QMenu *menu);

    Session &m_session;
    DisplayTabs &m_displays;
    WindowSettings &m_settings;
    ValueAxisDialog *m_dialog;
};

} // namespace Monitor
