// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/PopOutWindow_p.h"

#include <QChildEvent>
#include <QCloseEvent>
#include <QHash>
#include <QKeyEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWindow>

namespace Corvale_Qt {

namespace {

void takeButton(QTabBar &bar, int index, QTabBar::ButtonPosition side, QWidget *owner)
{
    if (QWidget *button = bar.tabButton(index, side)) {
        bar.setTabButton(index, side, nullptr);
        button->setParent(owner);
    }
}

void putButton(QTabBar &bar, int index, QTabBar::ButtonPosition side, QWidget *button)
{
    if (!button)
        return;
    // A closable tab is created with a new close button.
    QWidget *other = bar.tabButton(index, side);
    bar.setTabButton(index, side, button);
    if (other)
        other->deleteLater();
}

//! Returns the \a text of a tab without the "&" of its mnemonic.
QString withoutMnemonic(QString text)
{
    for (int i = 0; i < text.size(); ++i)
        if (text.at(i) == '&')
            text.remove(i, 1);
    return text;
}

//! Returns the last geometry of each page's window by the page's name. It is kept while the program runs.
QHash<QString, QByteArray> &rememberedGeometries()
{
    static QHash<QString, QByteArray> geometries;
    return geometries;
}

} // namespace

TabLook tabLook(const QTabWidget &tabs, int index)
{
    const QTabBar &bar = *tabs.tabBar();
    return {tabs.tabText(index),
            tabs.tabIcon(index),
            tabs.tabToolTip(index),
            tabs.tabWhatsThis(index),
            bar.accessibleTabName(index),
            bar.tabTextColor(index),
            bar.tabData(index),
            tabs.isTabEnabled(index),
            tabs.isTabVisible(index),
            bar.tabButton(index, QTabBar::LeftSide),
            bar.tabButton(index, QTabBar::RightSide)};
}

void TabLook::takeButtons(QTabWidget &tabs, int index, QWidget *owner) const
{
    takeButton(*tabs.tabBar(), index, QTabBar::LeftSide, owner);
    takeButton(*tabs.tabBar(), index, QTabBar::RightSide, owner);
}

void TabLook::apply(QTabWidget &tabs, int index) const
{
    QTabBar &bar = *tabs.tabBar();
    tabs.setTabText(index, text);
    tabs.setTabIcon(index, icon);
    tabs.setTabToolTip(index, toolTip);
    tabs.setTabWhatsThis(index, whatsThis);
    bar.setAccessibleTabName(index, accessibleName);
    bar.setTabTextColor(index, textColor);
    bar.setTabData(index, data);
    tabs.setTabEnabled(index, isEnabled);
    tabs.setTabVisible(index, isVisible);
    putButton(bar, index, QTabBar::LeftSide, leftButton);
    putButton(bar, index, QTabBar::RightSide, rightButton);
}

QKeySequence popOutKey()
{
    return Qt::CTRL + Qt::SHIFT + Qt::Key_O;
}

bool isPopOutKey(const QKeyEvent &event)
{
    return QKeySequence(int(event.modifiers()) | event.key()) == popOutKey();
}

PopOutWindow::PopOutWindow(QWidget *page, const TabLook &look, QWidget *owner)
    : QWidget(owner, Qt::Window)
    , m_page(page)
    , m_look(look)
    , m_name(page->objectName().isEmpty() ? look.text : page->objectName())
{
    setWindowTitle(withoutMnemonic(look.text));
    setWindowIcon(look.icon);
}

void PopOutWindow::holdPage()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_page);
    m_page->show();
}

PopOutWindow::~PopOutWindow()
{
    // Here, since the base class, which deletes the page, can no longer emit the signal.
    if (m_page)
        Q_EMIT pageLeft();
}

void PopOutWindow::place(const QSize &size, const QPoint *at)
{
    constexpr int kOffset = 24;
    resize(size);
    move(parentWidget()->mapToGlobal(QPoint(kOffset, kOffset)));
    restoreGeometry(rememberedGeometries().value(m_name));
    if (at)
        move(*at - QPoint(kOffset, kOffset / 2));
}

QWidget *PopOutWindow::takePage()
{
    QWidget *page = m_page;
    m_page = nullptr;
    return page;
}

void PopOutWindow::follow(const QWidget &mainWindow)
{
    if (windowHandle() && mainWindow.windowHandle())
        windowHandle()->setTransientParent(mainWindow.windowHandle());
    if (mainWindow.isMinimized() != m_isMainMinimized) {
        m_isMainMinimized = mainWindow.isMinimized();
        Qt::WindowStates state = windowState();
        setWindowState(state.setFlag(Qt::WindowMinimized, m_isMainMinimized));
    }
    // The main window, or the window in which the user works, stays active.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setVisible(mainWindow.isVisible());
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void PopOutWindow::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (event->removed() && m_page && event->child() == m_page) {
        m_page = nullptr;
        Q_EMIT pageLeft();
    }
}

void PopOutWindow::closeEvent(QCloseEvent *event)
{
    event->accept();
    Q_EMIT backRequested();
}

//! Takes the key before a shortcut of the host or of tabs in the page, since Qt runs none of two ambiguous shortcuts.
bool PopOutWindow::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride
        && isPopOutKey(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void PopOutWindow::keyPressEvent(QKeyEvent *event)
{
    if (isPopOutKey(*event))
        close();
    else
        QWidget::keyPressEvent(event);
}

void PopOutWindow::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    rememberedGeometries().insert(m_name, saveGeometry());
}

} // namespace Corvale_Qt
