// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QTabWidget>

namespace Corvale_Qt {

class RVXPopOutTabWidgetPrivate;

/*! A tab widget whose pages can be taken out into windows of their own, to be watched side by side or on
    another screen.

    A page goes out by a double click on its tab, by dragging the tab off the bar (clear of it by twice its height
    where tabs are movable), by the tab's context menu, or by Ctrl+Shift+O with the focus in it; it comes back to its
    old place when its window is closed, by the context menu, or by Ctrl+Shift+O in the window. A window shows the
    text and the icon that the tab had; the rest of the tab's look comes back with it. The window stays above the
    window of the tab widget, and is hidden, shown and minimised with that one. Its place and size are remembered, by
    the page's object name (else its tab's text), while the program runs.

    A page that is out belongs to this widget still and is deleted with it, but it is not among the tabs:
    count(), indexOf() and clear() do not know it. */
class CORVALE_QT_EXPORT RVXPopOutTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    explicit RVXPopOutTabWidget(QWidget *parent = nullptr);
    ~RVXPopOutTabWidget() override;

    bool isPoppedOut(QWidget *page) const;
    //! In the order of their tabs.
    QList<QWidget *> poppedOutPages() const;

public Q_SLOTS:
    //! Shows the page of tab \a index in a window of its own. Nothing happens when there is no such tab.
    void popOut(int index);
    //! Puts \a page back and shows it. Nothing happens when it is not out.
    void popIn(QWidget *page);
    void popInAll();

Q_SIGNALS:
    void tabPoppedOut(QWidget *page);
    void tabPoppedIn(QWidget *page);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void tabInserted(int index) override;
    void tabRemoved(int index) override;

private:
    Q_DECLARE_PRIVATE(RVXPopOutTabWidget)
    const QScopedPointer<RVXPopOutTabWidgetPrivate> d_ptr;
};

} // namespace Corvale_Qt
