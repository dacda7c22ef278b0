// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// The keys by which menus, entries, buttons and labels are reached.
#include <QtWidgets>

//! Returns the letter after the ampersand, in upper case; a null character without one.
inline QChar mnemonicOf(QString text)
{
    text.remove("&&");
    const int mark = text.indexOf('&');
    return mark < 0 ? QChar() : text.at(mark + 1).toUpper();
}

/*! Adds the letters that lead to each entry of a menu that opens a dialog, like "FO" for File > Open... The printer's dialog
    needs a printer. */
inline void addWays(const QMenu *menu, const QString &letters, QStringList *ways)
{
    for (const QAction *entry : menu->actions()) {
        const QString way = letters + mnemonicOf(entry->text());
        if (entry->menu())
            addWays(entry->menu(), way, ways);
        else if (entry->isEnabled() && entry->text().endsWith("...")
                 && entry->objectName() != "print")
            ways->append(way);
    }
}

//! Returns the keys of the buttons and labels in a window, each as "Alt+A: &Automatic".
inline QStringList mnemonicsIn(const QWidget *window)
{
    QStringList keys;
    const auto add = [&](const QWidget *part, const QString &text) {
        if (part->window() == window && part->isVisibleTo(window) && !mnemonicOf(text).isNull())
            keys.append(QString("Alt+%1: %2").arg(mnemonicOf(text)).arg(text));
    };
    for (const QAbstractButton *button : window->findChildren<QAbstractButton *>())
        add(button, button->text());
    for (const QLabel *label : window->findChildren<QLabel *>())
        if (label->buddy())
            add(label, label->text());
    for (const QTabBar *bar : window->findChildren<QTabBar *>())
        for (int tab = 0; tab < bar->count(); ++tab)
            add(bar, bar->tabText(tab));
    return keys;
}

//! Returns keys that more than one text in a window claims.
inline QStringList clashesIn(const QWidget *window)
{
    QMap<QString, QString> owners;
    QStringList clashes;
    for (const QString &mnemonic : mnemonicsIn(window)) {
        const QString key = mnemonic.section(':', 0, 0);
        if (owners.contains(key))
            clashes.append(owners.value(key) + " and " + mnemonic);
        owners.insert(key, mnemonic);
    }
    return clashes;
}
