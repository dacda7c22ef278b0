// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

class QAction;
class QWidget;

namespace Monitor {

class DisplayTabs;

//! Actions that copy, save or print a picture of the display that the operator works with.
class PictureActions : public QObject
{
    Q_OBJECT

public:
    //! \a window is the parent of the dialogs.
    PictureActions(DisplayTabs &displays, QWidget *window);

    QAction *saveAction() const { return m_save; }
    QAction *printAction() const { return m_print; }

private:
    QAction *newAction(const char *name, const QString &text, const QKeySequence &keys);
    void save();
    void print();

    DisplayTabs &m_displays;
    QWidget *m_window;
    QString m_folder;
    QAction *m_save;
    QAction *m_print;
};

} // namespace Monitor
