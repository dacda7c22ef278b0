// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/dialogs/HelpWindow.h"

#include <QMenu>
#include <QPointer>

class QMenuBar;

namespace Monitor {

//! The menu "Help". Its pages are built into the program.
class HelpMenu : public QMenu
{
    Q_OBJECT

public:
    //! \a bar is the menu bar whose keys the help lists.
    HelpMenu(QMenuBar *bar, QWidget *window);

private:
    void addPage(const QString &text, HelpWindow::Page page, const QKeySequence &keys = {});
    void showPage(HelpWindow::Page page);

    QMenuBar *m_bar;
    QWidget *m_window;
    QPointer<HelpWindow> m_help;
};

//! Returns a page in Markdown that lists the keys of all entries of the menus, and those that have no entry.
QString keysPage(const QMenuBar *bar);

} // namespace Monitor
