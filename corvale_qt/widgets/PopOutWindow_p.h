// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/widgets/TabLook_p.h"

#include <QKeySequence>
#include <QWidget>

class QKeyEvent;

namespace Corvale_Qt {

//! The key that takes the current page out of its tab and, in its window, back.
QKeySequence popOutKey();
bool isPopOutKey(const QKeyEvent &event);

/*! The window of one page that is out of its tab widget. It holds the page as its child, and so deletes it
    with itself; when the page is taken away or deleted, it says so and is of no more use. */
class PopOutWindow : public QWidget
{
    Q_OBJECT

public:
    //! For \a page, of the tab that looks so; \a owner keeps it above its own window.
    PopOutWindow(QWidget *page, const TabLook &look, QWidget *owner);
    ~PopOutWindow() override;

    const TabLook &look() const { return m_look; }
    /*! Puts the window where the last one of a page of this name was, the first time beside the owner's corner
        in \a size; its title under \a at, where that is given. */
    void place(const QSize &size, const QPoint *at);
    //! Takes the page, which is in no tab any more, as its child.
    void holdPage();
    //! Gives the page away, without pageLeft().
    QWidget *takePage();
    //! Hides, shows or minimises the window as \a mainWindow is, and keeps it above that one.
    void follow(const QWidget &mainWindow);

Q_SIGNALS:
    //! The user wants the page back in its place: the window was closed.
    void backRequested();
    //! The page was deleted, alone or with the window, or was put elsewhere.
    void pageLeft();

protected:
    void childEvent(QChildEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *m_page;
    const TabLook m_look;
    const QString m_name;
    bool m_isMainMinimized = false;
};

} // namespace Corvale_Qt
