// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tests/monitor/support/Dialogs.h"
#include "tests/monitor/support/Menus.h"

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
    if (qobject_cast<QFileDialog *>(dialog) || dialog->inherits("QPrintDialog")) // Qt's own
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

/*! Triggers the entries of all menus of a window, each once, and looks at the window and at what the entry opens. An entry that is
    disabled waits for a later walk, when there is something for it to do. */
class MenuWalk
{
public:
    MenuWalk(QMainWindow &window, ClippedTexts &clipped)
        : m_window(window)
        , m_clipped(clipped)
    {
    }

    //! Triggers all entries that are enabled and were not triggered yet, but for those that leave nothing to look at.
    void walk()
    {
        int before = 0;
        do {
            before = m_triggered.size();
            for (QMenu *menu : menus())
                walk(menu);
        } while (m_triggered.size() > before); // an entry may offer others, or fill its menu anew
    }
    //! Triggers an entry, which may open something else for another source, once more.
    void again(const char *name)
    {
        for (QMenu *menu : menus())
            for (QAction *entry : menu->actions())
                if (entry->objectName() == QLatin1String(name))
                    trigger(menu, entry);
    }
    //! Closes the source by its entry, and the window by "Quit".
    void leave()
    {
        const bool quits = QApplication::quitOnLastWindowClosed();
        QApplication::setQuitOnLastWindowClosed(
            false); // which would end the dialogs of all further tests
        for (QMenu *menu : menus())
            for (QAction *entry : menu->actions())
                if (isLast(entry))
                    trigger(menu, entry);
        QApplication::setQuitOnLastWindowClosed(quits);
    }
    //! Returns the entries that nothing has triggered, each as "&Edit > &Undo clear".
    QString missed() const
    {
        QStringList missed;
        for (const QMenu *menu : menus())
            for (const QAction *entry : menu->actions())
                if (isLeft(menu, entry))
                    missed.append(nameOf(menu, entry));
        return missed.join('\n');
    }
    int dialogs() const { return m_dialogs; }

private:
    QList<QMenu *> menus() const { return menusOf(m_window); }
    static QString nameOf(const QMenu *menu, const QAction *entry)
    {
        return menu->title() + " > " + entry->text();
    }
    static bool isLast(const QAction *entry)
    {
        return entry->objectName() == "closeSource" || entry->objectName() == "quit";
    }
    bool isLeft(const QMenu *menu, const QAction *entry) const
    {
        return !entry->isSeparator() && !entry->menu() && entry->isVisible()
            && !m_triggered.contains(nameOf(menu, entry));
    }
    void walk(QMenu *menu)
    {
        m_clipped.lookAtMenu(menu);
        QVector<QPointer<QAction>> entries;
        for (QAction *entry : menu->actions())
            entries.append(entry);
        for (const QPointer<QAction> &entry : qAsConst(entries))
            if (entry && menu->isEnabled() && entry->isEnabled() && !isLast(entry)
                && isLeft(menu, entry))
                trigger(menu, entry);
    }
    void trigger(const QMenu *menu, const QPointer<QAction> &entry)
    {
        const QString name = nameOf(menu, entry);
        m_triggered.insert(name);
        onEveryDialog(
            [&](QDialog *dialog) {
                ++m_dialogs;
                lookAtDialog(name, dialog, m_clipped);
            },
            [entry] { entry->trigger(); });
        QCoreApplication::processEvents();
        if (!m_window
                 .isFullScreen()) // the screen of the tests is smaller than any that the window is made for
            lookAtWindows(name, m_clipped);
        if (entry && entry->isCheckable() && !entry->actionGroup())
            entry->trigger();
    }

    QMainWindow &m_window;
    ClippedTexts &m_clipped;
    QSet<QString> m_triggered;
    int m_dialogs = 0;
};
