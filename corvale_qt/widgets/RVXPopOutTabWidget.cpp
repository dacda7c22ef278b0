// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXPopOutTabWidget.h"

#include "corvale_qt/widgets/PopOutWindow_p.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHash>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTabBar>
#include <QVector>

namespace Corvale_Qt {

namespace {

const QKeySequence kShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_O);

//! Where the windows of pages were last, by the pages' names.
QHash<QString, QByteArray> &rememberedGeometries()
{
    static QHash<QString, QByteArray> geometries;
    return geometries;
}

QString nameOf(const PopOutWindow &window)
{
    const QString name = window.page()->objectName();
    return name.isEmpty() ? window.look().text : name;
}

} // namespace

class RVXPopOutTabWidgetPrivate
{
public:
    explicit RVXPopOutTabWidgetPrivate(RVXPopOutTabWidget *tabs)
        : q(tabs)
    {
    }

    QTabBar *bar() const { return q->tabBar(); }
    TabLook lookOf(int index) const;
    void insert(QWidget *page, int index);
    void prune();
    int placeFor(QWidget *page) const;

    void popOut(int index, const QPoint *at);
    void addPopInAction(PopOutWindow *window);
    void place(PopOutWindow *window, const QSize &size, const QPoint *at) const;
    void forget(QWidget *page);

    bool handleMouse(QEvent::Type type, const QMouseEvent &event);
    void dragOff(const QMouseEvent &event);
    void fillMenu(QMenu *menu, int index);

    RVXPopOutTabWidget *const q;
    //! All pages in the order of their tabs, those that are out in the places where they come back to.
    QVector<QWidget *> order;
    //! Null for a page on its way.
    QHash<QWidget *, QPointer<PopOutWindow>> windows;
    QPointer<QWidget> pressedPage;
};

TabLook RVXPopOutTabWidgetPrivate::lookOf(int index) const
{
    return {q->tabText(index),
            q->tabIcon(index),
            q->tabToolTip(index),
            q->tabWhatsThis(index),
            q->isTabEnabled(index)};
}

//! Notes \a page, now tab \a index, before the tab that follows it.
void RVXPopOutTabWidgetPrivate::insert(QWidget *page, int index)
{
    order.removeAll(page);
    const int next = order.indexOf(q->widget(index + 1));
    order.insert(next < 0 ? order.size() : next, page);
}

//! Forgets the pages that are neither a tab nor out. They may be deleted already: they are only compared.
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

    QObject::connect(window, &PopOutWindow::backRequested, q, [this, page] {
        q->popIn(page);
    });
    QObject::connect(window, &PopOutWindow::pageLeft, q, [this, page] {
        forget(page);
    });
    QObject::connect(window, &QObject::destroyed, q, [this, page] {
        forget(page);
    });
    addPopInAction(window);
    place(window, size, at);
    window->show();
    window->activateWindow();
    q->update();
    Q_EMIT q->tabPoppedOut(page);
}

void RVXPopOutTabWidgetPrivate::addPopInAction(PopOutWindow *window)
{
    auto *back = new QAction(RVXPopOutTabWidget::tr("Put back into its tab"), window);
    back->setShortcut(kShortcut);
    QObject::connect(back, &QAction::triggered, window, &QWidget::close);
    window->addAction(back);
    window->setContextMenuPolicy(Qt::ActionsContextMenu);
}

//! Where it was last; dragged off, under the pointer; the first time, beside the tab's own place.
void RVXPopOutTabWidgetPrivate::place(PopOutWindow *window,
                                      const QSize &size,
                                      const QPoint *at) const
{
    constexpr int kOffset = 24;
    window->resize(size);
    window->move(q->mapToGlobal(QPoint(kOffset, kOffset)));
    window->restoreGeometry(rememberedGeometries().value(nameOf(*window)));
    if (at)
        window->move(*at - QPoint(kOffset, kOffset / 2));
}

//! The page was deleted, or someone else has it now.
void RVXPopOutTabWidgetPrivate::forget(QWidget *page)
{
    const QPointer<PopOutWindow> window = windows.take(page);
    prune();
    q->update();
    if (!window)
        return;
    window->disconnect(q);
    window->hide();
    window->deleteLater();
}

//! Whether \a event was for this widget alone.
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
        popOut(index, nullptr);
        return true;
    case QEvent::MouseMove: {
        const int margin = 2 * QApplication::startDragDistance();
        const QRect around = bar()->rect().adjusted(-margin, -margin, margin, margin);
        if (!pressedPage || !(event.buttons() & Qt::LeftButton) || around.contains(event.pos()))
            return false;
        dragOff(event);
        return true;
    }
    default:
        return false;
    }
}

void RVXPopOutTabWidgetPrivate::dragOff(const QMouseEvent &event)
{
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

    auto *out = new QAction(tr("Open this tab in a window"), this);
    out->setShortcut(kShortcut);
    out->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(out, &QAction::triggered, this, [this] {
        popOut(currentIndex());
    });
    addAction(out);
}

RVXPopOutTabWidget::~RVXPopOutTabWidget()
{
    Q_D(RVXPopOutTabWidget);
    // The rest of this widget goes after the private data, and would still report to it.
    tabBar()->removeEventFilter(this);
    const auto windows = d->windows;
    d->windows.clear();
    for (const QPointer<PopOutWindow> &window : windows) {
        window->disconnect(this);
        delete window;
    }
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
    d->popOut(index, nullptr);
}

void RVXPopOutTabWidget::popIn(QWidget *page)
{
    Q_D(RVXPopOutTabWidget);
    if (!isPoppedOut(page))
        return;
    PopOutWindow *window = d->windows.take(page);
    rememberedGeometries().insert(nameOf(*window), window->saveGeometry());
    window->disconnect(this);
    window->takePage();
    const TabLook look = window->look();
    const int index = insertTab(d->placeFor(page), page, look.icon, look.text);
    setTabToolTip(index, look.toolTip);
    setTabWhatsThis(index, look.whatsThis);
    setTabEnabled(index, look.isEnabled);
    setCurrentIndex(index);
    // It may be handling its close event.
    window->hide();
    window->deleteLater();
    Q_EMIT tabPoppedIn(page);
}

void RVXPopOutTabWidget::popInAll()
{
    const QList<QWidget *> pages = poppedOutPages();
    for (QWidget *page : pages)
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
    default:
        break;
    }
    return QTabWidget::eventFilter(watched, event);
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
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
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
