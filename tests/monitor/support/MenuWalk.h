// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tests/monitor/support/Dialogs.h"

//! Returns whether an entry can be triggered without leaving the window.
inline bool staysInTheWindow(const QAction *entry)
{
    static const QStringList leaving{"closeSource", "print", "fullScreen", "quit"};
    return !entry->isSeparator() && !entry->menu() && entry->isEnabled()
        && !leaving.contains(entry->objectName());
}

inline void lookAtPages(QDialog *dialog, ClippedTexts &clipped)
{
    auto *kinds = dialog->findChild<QListWidget *>("kinds");
    for (int row = 0; kinds && row < kinds->count(); ++row) {
        kinds->setCurrentRow(row);
        QCoreApplication::processEvents();
        clipped.look(kinds->item(row)->text(), dialog);
    }
    auto *tabs = dialog->findChild<QTabWidget *>();
    for (int page = 0; tabs && page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        QCoreApplication::processEvents();
        clipped.look(tabs->tabText(page), dialog);
    }
}

inline void lookAtDialog(const QString &name, QDialog *dialog, ClippedTexts &clipped)
{
    QCoreApplication::processEvents();
    if (qobject_cast<QFileDialog *>(dialog))
        return;
    // The screen of the tests is narrower than the smallest that the window is made for.
    if (dialog->width() >= dialog->screen()->availableSize().width()) {
        // Qt keeps a message box on the screen there is; with more room it would look different.
        if (qobject_cast<QMessageBox *>(dialog))
            return;
        dialog->resize(int(clipped.screen().width() / dialog->devicePixelRatioF()),
                       dialog->height());
        QCoreApplication::processEvents();
    }
    clipped.look(name, dialog);
    clipped.require(name, dialog);
    lookAtPages(dialog, clipped);
}

inline void lookAtWindows(const QString &name, ClippedTexts &clipped)
{
    for (const QWidget *shown : QApplication::topLevelWidgets()) {
        if (!shown->isVisible() || qobject_cast<const QMenu *>(shown))
            continue;
        clipped.look(name, shown);
        clipped.require(name, shown);
    }
}

//! Looks at a menu and at what each of its entries opens. Returns the number of dialogs.
inline int walk(QMenu *menu, ClippedTexts &clipped)
{
    int dialogs = 0;
    clipped.lookAtMenu(menu);
    QVector<QPointer<QAction>> entries; // some menus are filled anew by what an entry does
    for (QAction *entry : menu->actions())
        entries.append(entry);
    for (const QPointer<QAction> &entry : qAsConst(entries)) {
        if (!entry || !staysInTheWindow(entry))
            continue;
        const QString name = entry->text();
        onEveryDialog(
            [&](QDialog *dialog) {
                ++dialogs;
                lookAtDialog(name, dialog, clipped);
            },
            [entry] { entry->trigger(); });
        QCoreApplication::processEvents();
        lookAtWindows(name, clipped);
        if (entry && entry->isCheckable() && !entry->actionGroup())
            entry->trigger();
    }
    return dialogs;
}
