// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QColor>
#include <QIcon>
#include <QKeySequence>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QWidget>

class QKeyEvent;

class QTabWidget;

namespace Corvale_Qt {

//! The properties of a tab, without its page.
struct TabLook
{
    QString text;
    QIcon icon;
    QString toolTip;
    QString whatsThis;
    QString accessibleName;
    QColor textColor;
    QVariant data;
    bool isEnabled = true;
    bool isVisible = true;
    //! Buttons of the tab, owned by the tab bar or by the owner given to takeButtons().
    QPointer<QWidget> leftButton;
    QPointer<QWidget> rightButton;

    //! Moves the buttons, hidden, to \a owner, since they would be deleted with the tab.
    void takeButtons(QTabWidget &tabs, int index, QWidget *owner) const;
    //! Gives tab \a index these properties and the buttons.
    void apply(QTabWidget &tabs, int index) const;
};

//! Returns the properties of tab \a index.
TabLook tabLook(const QTabWidget &tabs, int index);

//! Returns the key that moves the current page into a window and, in that window, back into its tab.
QKeySequence popOutKey();
bool isPopOutKey(const QKeyEvent &event);

/*! The window of a page that is out of its tab widget. The page is a child of the window and is deleted with it.
    When the page is deleted or moved elsewhere, the window emits pageLeft() and should be deleted. */
class PopOutWindow : public QWidget
{
    Q_OBJECT

public:
    /*! Creates a window for \a page, whose tab has the given \a look; it stays above the window of \a owner, its
        parent. */
    PopOutWindow(QWidget *page, const TabLook &look, QWidget *owner);
    ~PopOutWindow() override;

    const TabLook &look() const { return m_look; }
    /*! Gives the window the position and size that the last window of a page with this name had, or else \a size
        and a place near the owner's corner. Moves its title bar under \a at, in global coordinates, unless that is
        null. */
    void place(const QSize &size, const QPoint *at);
    //! Makes the page, which must no longer be in a tab, a child of the window.
    void holdPage();
    //! Returns the page and forgets it; pageLeft() will not be emitted for it. The caller gives it another parent.
    QWidget *takePage();
    //! Hides, shows or minimises the window like \a mainWindow, and keeps it above that window.
    void follow(const QWidget &mainWindow);

Q_SIGNALS:
    //! Emitted when the window is closed, which means that the user wants the page back in its tab.
    void backRequested();
    //! Emitted when the page has been deleted, alone or with the window, or has been moved elsewhere.
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
