// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for RVXPopOutTabWidget alone.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/widgets/PopOutWindow_p.h"
#include "corvale_qt/widgets/RVXPopOutTabWidget.h"

#include <QEvent>
#include <QMap>
#include <QPointer>
#include <QVector>

class QMenu;
class QMouseEvent;

namespace Corvale_Qt {

//! Knows all pages in the order of their tabs, and the windows of those that are out.
class RVXPopOutTabWidgetPrivate
{
public:
    explicit RVXPopOutTabWidgetPrivate(RVXPopOutTabWidget *tabs)
        : q(tabs)
    {
    }

    //! Notes \a page, now tab \a index, before the tab that follows it.
    void insert(QWidget *page, int index);
    //! Forgets the pages that are neither a tab nor out. They may be deleted already: they are only compared.
    void prune();

    //! With the window under \a at, where that is given.
    void popOut(int index, const QPoint *at = nullptr);
    void popIn(QWidget *page);
    void deleteWindows();

    //! Whether \a event, on the tab bar, was for this widget alone.
    bool handleMouse(QEvent::Type type, const QMouseEvent &event);
    void fillMenu(QMenu *menu, int index);

    //! Watches the window that the tabs are in now.
    void watchMainWindow();
    //! What \a type of event of the main window means for the windows of pages.
    void followMainWindow(QEvent::Type type);

    RVXPopOutTabWidget *const q;
    //! All pages in the order of their tabs, those that are out in the places where they come back to.
    QVector<QWidget *> order;
    //! Null for a page on its way.
    QMap<QWidget *, PopOutWindow *> windows;
    QPointer<QWidget> mainWindow;

private:
    QTabBar *bar() const { return q->tabBar(); }
    int placeFor(QWidget *page) const;
    void connectWindow(PopOutWindow *window, QWidget *page);
    void forget(QWidget *page);
    QRect areaOfDrags() const;
    void followAll();
    bool handleDrag(const QMouseEvent &event);

    QPointer<QWidget> pressedPage;
};

} // namespace Corvale_Qt
