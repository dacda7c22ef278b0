// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

class QMenu;
class QWidget;

namespace Monitor {

class DisplayTabs;

//! Menu entries that copy or save a picture of the display that the operator works with.
class PictureActions : public QObject
{
    Q_OBJECT

public:
    //! Adds the entries to \a menu; \a window is the parent of the dialogs.
    PictureActions(DisplayTabs &displays, QMenu *menu, QWidget *window);

private:
    void save();

    DisplayTabs &m_displays;
    QWidget *m_window;
    QString m_folder;
};

} // namespace Monitor
