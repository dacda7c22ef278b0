// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/PictureMaker.h"

#include <QObject>

class QAction;
class QWidget;

namespace Monitor {

//! Actions that copy, save or print a picture of the display that the operator works with.
class PictureActions : public QObject
{
    Q_OBJECT

public:
    //! \a window is the parent of the dialogs. Session, displays and settings must outlive it.
    PictureActions(Session &session,
                   DisplayTabs &displays,
                   WindowSettings &settings,
                   QWidget *window);

    QAction *saveAction() const { return m_save; }
    QAction *printAction() const { return m_print; }
    QAction *copyAction() const { return m_copy; }

private:
    QAction *newAction(const char *name, const QString &text, const QKeySequence &keys);
    void ask();
    void save(QWidget *display, const QString &title);
    void print();
    void copy(QWidget *display, const QString &title);

    PictureMaker m_maker;
    QWidget *m_window;
    QString m_folder;
    QAction *m_save;
    QAction *m_print;
    QAction *m_copy;
};

} // namespace Monitor
