// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXPopOutTabWidget_p.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTabBar>

namespace Corvale_Qt {

RVXPopOutTabWidget::RVXPopOutTabWidget(QWidget *parent)
    : QTabWidget(parent)
    , d_ptr(new RVXPopOutTabWidgetPrivate(this))
{
    Q_D(RVXPopOutTabWidget);
    tabBar()->installEventFilter(this);
    connect(tabBar(), &QTabBar::tabMoved, this, [this, d](int, int to) {
        d->insert(widget(to), to);
    });
}

RVXPopOutTabWidget::~RVXPopOutTabWidget()
{
    Q_D(RVXPopOutTabWidget);
    // The rest of this widget goes after the private data, and would still report to it.
    tabBar()->removeEventFilter(this);
    if (d->mainWindow)
        d->mainWindow->removeEventFilter(this);
    d->deleteWindows();
}

bool RVXPopOutTabWidget::isPoppedOut(QWidget *page) const
{
    Q_D(const RVXPopOutTabWidget);
    return d->windows.value(page);
}

QList<QWidget *> RVXPopOutTabWidget::poppedOutPages() const
{
    Q_D(const RVXPopOutTabWidget);
    QList<QWidget *> pages;
    for (QWidget *page : d->order)
        if (isPoppedOut(page))
            pages << page;
    return pages;
}

void RVXPopOutTabWidget::popOut(int index)
{
    Q_D(RVXPopOutTabWidget);
    d->popOut(index);
}

void RVXPopOutTabWidget::popIn(QWidget *page)
{
    Q_D(RVXPopOutTabWidget);
    d->popIn(page);
}

void RVXPopOutTabWidget::popInAll()
{
    const QPointer<RVXPopOutTabWidget> alive = this;
    const QList<QWidget *> pages = poppedOutPages();
    for (QWidget *page : pages)
        if (alive)
            popIn(page);
}

bool RVXPopOutTabWidget::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(RVXPopOutTabWidget);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        if (watched == tabBar()
            && d->handleMouse(event->type(), *static_cast<QMouseEvent *>(event)))
            return true;
        break;
    case QEvent::Hide:
    case QEvent::Show:
        // Spontaneous ones belong to a change of the window state.
        if (watched == d->mainWindow && !event->spontaneous())
            d->followMainWindow(event->type());
        break;
    case QEvent::WindowStateChange:
        if (watched == d->mainWindow)
            d->followMainWindow(event->type());
        break;
    default:
        break;
    }
    return QTabWidget::eventFilter(watched, event);
}

//! Tabs within tabs, or a shortcut of the host, may have the same key: the innermost with the focus takes it.
bool RVXPopOutTabWidget::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isTabEnabled(currentIndex())
        && isPopOutKey(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QTabWidget::event(event);
}

void RVXPopOutTabWidget::keyPressEvent(QKeyEvent *event)
{
    if (isPopOutKey(*event) && isTabEnabled(currentIndex()))
        popOut(currentIndex());
    else
        QTabWidget::keyPressEvent(event);
}

//! It may have come into another window.
void RVXPopOutTabWidget::showEvent(QShowEvent *event)
{
    Q_D(RVXPopOutTabWidget);
    QTabWidget::showEvent(event);
    d->watchMainWindow();
}

void RVXPopOutTabWidget::contextMenuEvent(QContextMenuEvent *event)
{
    Q_D(RVXPopOutTabWidget);
    const QPoint onBar = tabBar()->mapFrom(this, event->pos());
    const bool isOnBar = tabBar()->rect().contains(onBar);
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard && tabBar()->hasFocus();
    if (count() > 0 && !isOnBar && !byKey) {
        QTabWidget::contextMenuEvent(event);
        return;
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    d->fillMenu(menu, byKey ? currentIndex() : tabBar()->tabAt(onBar));
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(event->globalPos());
}

//! A tab widget whose pages are all out says so.
void RVXPopOutTabWidget::paintEvent(QPaintEvent *event)
{
    Q_D(RVXPopOutTabWidget);
    QTabWidget::paintEvent(event);
    if (count() > 0 || d->windows.isEmpty())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(
        rect().adjusted(8, 8, -8, -8),
        Qt::AlignCenter | Qt::TextWordWrap,
        tr("All pages are in windows of their own.\nClose a window to put its page back."));
}

void RVXPopOutTabWidget::tabInserted(int index)
{
    Q_D(RVXPopOutTabWidget);
    QTabWidget::tabInserted(index);
    QWidget *page = widget(index);
    if (!d->order.contains(page))
        d->insert(page, index);
}

void RVXPopOutTabWidget::tabRemoved(int index)
{
    Q_D(RVXPopOutTabWidget);
    QTabWidget::tabRemoved(index);
    d->prune();
}

} // namespace Corvale_Qt
