// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

//! Returns all menus of a window, those inside others too.
inline QList<QMenu *> menusOf(const QMainWindow &window)
{
    QList<QMenu *> menus;
    for (const QAction *entry : window.menuBar()->actions())
        menus.append(entry->menu());
    for (int i = 0; i < menus.size(); ++i)
        for (const QAction *entry : menus.at(i)->actions())
            if (entry->menu())
                menus.append(entry->menu());
    return menus;
}
