// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXPopOutTabWidget_p.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTabBar>

#include <algorithm>

namespace Corvale_Qt {

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
    watchMainWindow();
    const QSize size = page->isVisible() ? page->size() : q->currentWidget()->size();
    auto *window = new PopOutWindow(page, tabLook(*q, index), q);
    window->look().takeButtons(*q, index, window);
    windows.insert(page, nullptr);
    q->removeTab(index);
    window->holdPage();
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

    // The key is only shown: the window takes it itself.
    auto *back = new QAction(RVXPopOutTabWidget::tr("Put back into its tab") + QLatin1Char('\t')
                                 + popOutKey().toString(QKeySequence::NativeText),
                             window);
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
    const int index = q->insertTab(placeFor(page), page, QString());
    look.apply(*q, index);
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

//! Where a drag leaves the tab on its bar. One that can be moved along the bar has to be dragged clear of it.
QRect RVXPopOutTabWidgetPrivate::areaOfDrags() const
{
    const bool isUpright =
        q->tabPosition() == QTabWidget::West || q->tabPosition() == QTabWidget::East;
    const int height = isUpright ? bar()->width() : bar()->height();
    const int margin = q->isMovable() ? 2 * height : 2 * QApplication::startDragDistance();
    return bar()->rect().adjusted(-margin, -margin, margin, margin);
}

bool RVXPopOutTabWidgetPrivate::handleDrag(const QMouseEvent &event)
{
    if (areaOfDrags().contains(event.pos()))
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

void RVXPopOutTabWidgetPrivate::watchMainWindow()
{
    if (mainWindow == q->window())
        return;
    if (mainWindow)
        mainWindow->removeEventFilter(q);
    mainWindow = q->window();
    mainWindow->installEventFilter(q);
    followAll();
}

void RVXPopOutTabWidgetPrivate::followMainWindow(QEvent::Type type)
{
    if (type == QEvent::Hide || type == QEvent::WindowStateChange)
        followAll();
    // Not before it is there itself, for them to be above it.
    if (type == QEvent::Show)
        QMetaObject::invokeMethod(
            q,
            [this] {
                followAll();
            },
            Qt::QueuedConnection);
}

void RVXPopOutTabWidgetPrivate::followAll()
{
    for (PopOutWindow *window : qAsConst(windows))
        if (window && mainWindow)
            window->follow(*mainWindow);
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
