// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXPopOutTabWidget_p.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTabBar>

#include <algorithm>

namespace Corvale_Qt {

TabLook RVXPopOutTabWidgetPrivate::lookOf(int index) const
{
    return {q->tabText(index),
            q->tabIcon(index),
            q->tabToolTip(index),
            q->tabWhatsThis(index),
            q->isTabEnabled(index)};
}

void RVXPopOutTabWidgetPrivate::insert(QWidget *page, int index)
{
    order.removeAll(page);
    const int next = order.indexOf(q->widget(index + 1));
    order.insert(next < 0 ? order.size() : next, page);
}

void RVXPopOutTabWidgetPrivate::prune()
{
    const auto isGone = [this](QWidget *page) {
        return !windows.contains(page) && q->indexOf(page) < 0;
    };
    order.erase(std::remove_if(order.begin(), order.end(), isGone), order.end());
}

//! Which tab \a page becomes: behind those that stood before it.
int RVXPopOutTabWidgetPrivate::placeFor(QWidget *page) const
{
    const auto end = std::find(order.begin(), order.end(), page);
    return int(std::count_if(order.begin(), end, [this](QWidget *other) {
        return q->indexOf(other) >= 0;
    }));
}

void RVXPopOutTabWidgetPrivate::popOut(int index, const QPoint *at)
{
    QWidget *page = q->widget(index);
    if (!page)
        return;
    const TabLook look = lookOf(index);
    const QSize size = page->isVisible() ? page->size() : q->currentWidget()->size();
    windows.insert(page, nullptr);
    q->removeTab(index);
    auto *window = new PopOutWindow(page, look, q);
    windows.insert(page, window);
    connectWindow(window, page);
    window->place(size, at);
    window->show();
    window->activateWindow();
    q->update();
    Q_EMIT q->tabPoppedOut(page);
}

void RVXPopOutTabWidgetPrivate::connectWindow(PopOutWindow *window, QWidget *page)
{
    QObject::connect(window, &PopOutWindow::backRequested, q, [this, page] {
        popIn(page);
    });
    QObject::connect(window, &PopOutWindow::pageLeft, q, [this, page] {
        forget(page);
    });

    auto *back = new QAction(RVXPopOutTabWidget::tr("Put back into its tab"), window);
    back->setShortcut(popOutShortcut());
    QObject::connect(back, &QAction::triggered, window, &QWidget::close);
    window->addAction(back);
    window->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void RVXPopOutTabWidgetPrivate::popIn(QWidget *page)
{
    PopOutWindow *window = windows.value(page);
    if (!window)
        return;
    windows.remove(page);
    window->disconnect(q);
    window->takePage();
    const TabLook look = window->look();
    const int index = q->insertTab(placeFor(page), page, look.icon, look.text);
    q->setTabToolTip(index, look.toolTip);
    q->setTabWhatsThis(index, look.whatsThis);
    q->setTabEnabled(index, look.isEnabled);
    q->setCurrentIndex(index);
    // It may be handling its close event.
    window->hide();
    window->deleteLater();
    Q_EMIT q->tabPoppedIn(page);
}

void RVXPopOutTabWidgetPrivate::deleteWindows()
{
    // One by one: a page may take others with it.
    while (!windows.isEmpty()) {
        PopOutWindow *window = windows.take(windows.firstKey());
        window->disconnect(q);
        window->hide();
        delete window;
    }
}

//! The page was deleted, with its window or alone, or someone else has it now.
void RVXPopOutTabWidgetPrivate::forget(QWidget *page)
{
    PopOutWindow *window = windows.take(page);
    prune();
    q->update();
    window->disconnect(q);
    window->hide();
    window->deleteLater();
}

bool RVXPopOutTabWidgetPrivate::handleMouse(QEvent::Type type, const QMouseEvent &event)
{
    const int index = bar()->tabAt(event.pos());
    switch (type) {
    case QEvent::MouseButtonPress:
        pressedPage = event.button() == Qt::LeftButton ? q->widget(index) : nullptr;
        return false;
    case QEvent::MouseButtonRelease:
        pressedPage.clear();
        return false;
    case QEvent::MouseButtonDblClick:
        if (event.button() != Qt::LeftButton || !q->isTabEnabled(index))
            return false;
        pressedPage.clear();
        popOut(index);
        return true;
    case QEvent::MouseMove:
        return pressedPage && (event.buttons() & Qt::LeftButton) && handleDrag(event);
    default:
        return false;
    }
}

bool RVXPopOutTabWidgetPrivate::handleDrag(const QMouseEvent &event)
{
    const int margin = 2 * QApplication::startDragDistance();
    if (bar()->rect().adjusted(-margin, -margin, margin, margin).contains(event.pos()))
        return false;
    const QPointer<QWidget> page = pressedPage;
    pressedPage.clear();
    // The bar may be moving the tab; its part of the drag ends here.
    QMouseEvent release(QEvent::MouseButtonRelease,
                        event.localPos(),
                        event.screenPos(),
                        Qt::LeftButton,
                        Qt::NoButton,
                        event.modifiers());
    QCoreApplication::sendEvent(bar(), &release);
    const QPoint at = event.globalPos();
    if (page && q->isTabEnabled(q->indexOf(page)))
        popOut(q->indexOf(page), &at);
    return true;
}

void RVXPopOutTabWidgetPrivate::fillMenu(QMenu *menu, int index)
{
    if (QWidget *page = q->widget(index)) {
        QAction *out = menu->addAction(
            RVXPopOutTabWidget::tr("Open \"%1\" in a window").arg(q->tabText(index)));
        QObject::connect(out, &QAction::triggered, page, [this, page] {
            q->popOut(q->indexOf(page));
        });
    }
    const QList<QWidget *> pages = q->poppedOutPages();
    if (!pages.isEmpty())
        menu->addSeparator();
    for (QWidget *page : pages) {
        const TabLook &look = windows.value(page)->look();
        QAction *back =
            menu->addAction(look.icon, RVXPopOutTabWidget::tr("Put \"%1\" back").arg(look.text));
        QObject::connect(back, &QAction::triggered, page, [this, page] {
            q->popIn(page);
        });
    }
    if (pages.size() > 1)
        menu->addAction(RVXPopOutTabWidget::tr("Put all back"), q, &RVXPopOutTabWidget::popInAll);
}

} // namespace Corvale_Qt
