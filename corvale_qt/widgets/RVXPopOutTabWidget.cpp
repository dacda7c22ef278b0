// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXPopOutTabWidget.h"

#include "corvale_qt/widgets/PopOutWindow_p.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QMap>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTabBar>
#include <QVector>

#include <algorithm>

namespace Corvale_Qt {

//! Keeps the order of all pages and the windows of the pages that are out.
class RVXPopOutTabWidgetPrivate
{
public:
    explicit RVXPopOutTabWidgetPrivate(RVXPopOutTabWidget *tabs)
        : q(tabs)
    {
    }

    //! Records that \a page is now tab \a index.
    void insert(QWidget *page, int index);
    //! Forgets pages that are neither in a tab nor out. They may already be deleted; pointers are only compared.
    void prune();

    //! Moves the page of tab \a index into a window, with its title bar under \a at unless that is null.
    void popOut(int index, const QPoint *at = nullptr);
    void popIn(QWidget *page);
    void deleteWindows();

    //! Handles \a event of the tab bar; returns whether the tab bar must not see it.
    bool handleMouse(QEvent::Type type, const QMouseEvent &event);
    void fillMenu(QMenu *menu, int index);

    //! Watches the window that contains the tabs now.
    void watchMainWindow();
    //! Hides, shows or minimises the windows of pages after an event of \a type in the main window.
    void followMainWindow(QEvent::Type type);

    RVXPopOutTabWidget *const q;
    //! All pages in the order of their tabs; a page that is out keeps the place to which it returns.
    QVector<QWidget *> order;
    //! The window of each page that is out; null while the page is being moved.
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

//! Returns the index of the tab that \a page gets when it returns.
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

    // The menu only shows the key; the window handles it.
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
    // The window may be handling its close event.
    window->hide();
    window->deleteLater();
    Q_EMIT q->tabPoppedIn(page);
}

void RVXPopOutTabWidgetPrivate::deleteWindows()
{
    // One at a time, since deleting a page may delete others.
    while (!windows.isEmpty()) {
        PopOutWindow *window = windows.take(windows.firstKey());
        window->disconnect(q);
        window->hide();
        delete window;
    }
}

//! Removes \a page, which was deleted or now belongs to another widget.
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

//! Returns the area, around the tab bar, within which a drag leaves the tab in place. It is larger for movable tabs.
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
    // The bar may be moving the tab along; a release ends that.
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
    // Later, since the main window must be shown first for the others to be above it.
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
    // The base classes are destroyed after the private data and would still send it events.
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
        // Spontaneous events belong to a change of the window state.
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

//! Nested tab widgets and shortcuts of the host may use the same key: the innermost widget with the focus takes it.
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

//! The tabs may be in another window than before.
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

//! Shows a hint if all pages are out.
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
        tr("All pages are in separate windows.\nClose a window to put its page back."));
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
