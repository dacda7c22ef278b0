// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QTabWidget>

namespace Corvale_Qt {

class RVXPopOutTabWidgetPrivate;

/*! A tab widget whose pages the user can move into separate windows, to watch them side by side or on another
    screen.

    A page pops out when the user double-clicks its tab, drags the tab off the bar (by twice the height of the bar
    if the tabs are movable), chooses it in the tab's context menu, or presses Ctrl+Shift+O while the focus is in
    the page. It returns to its old place when the user closes the window, chooses it in the context menu, or
    presses Ctrl+Shift+O in the window. The window shows the text and the icon of the tab; when the page returns,
    its tab looks as before.

    The window stays above the main window, that is, the window of the tab widget, and is hidden, shown and
    minimised with it. While the program runs, its position and size are remembered under the page's object name,
    or under the tab's text if the page has none.

    A page that is out still belongs to this widget and is deleted with it, but it is not among the tabs: count(),
    indexOf() and clear() do not include it. */
class CORVALE_QT_EXPORT RVXPopOutTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    //! Creates a tab widget without pages.
    explicit RVXPopOutTabWidget(QWidget *parent = nullptr);
    ~RVXPopOutTabWidget() override;

    //! Returns whether \a page of this widget is in a window now.
    bool isPoppedOut(QWidget *page) const;
    //! Returns the pages that are in windows, in the order of their tabs.
    QList<QWidget *> poppedOutPages() const;

public Q_SLOTS:
    //! Moves the page of tab \a index, counted from 0, into a window. Does nothing if there is no such tab.
    void popOut(int index);
    //! Puts \a page back into its tab and makes it current. Does nothing if the page is not out.
    void popIn(QWidget *page);
    //! Puts all pages back that are out.
    void popInAll();

Q_SIGNALS:
    //! Emitted when \a page has been moved into a window. The host may delete the tab widget in answer.
    void tabPoppedOut(QWidget *page);
    //! Emitted when \a page is back in its tab. The host may delete the tab widget in answer.
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
