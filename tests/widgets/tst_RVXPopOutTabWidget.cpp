// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXPopOutTabWidget.h"
#include "tests/support/Mouse.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! A shown tab widget with one page for each name.
class Tabs : public RVXPopOutTabWidget
{
public:
    explicit Tabs(const QStringList &names)
    {
        for (const QString &name : names)
            addTab(new QLabel(name), name);
        resize(400, 300);
        move(100, 100);
        show();
    }
    QString tabs() const
    {
        QString texts;
        for (int i = 0; i < count(); ++i)
            texts += tabText(i);
        return texts;
    }
    QPoint middleOf(int index) const { return tabBar()->tabRect(index).center(); }
};

//! Drags from \a from to a point below the bar, at a distance of \a heights times the height of the bar.
void dragOffTheBar(QTabBar *bar, const QPoint &from, double heights)
{
    const QPointer<QTabBar> alive = bar;
    QTest::mousePress(bar, Qt::LeftButton, {}, from);
    const int end = int(bar->height() * (1 + heights));
    for (const QPoint &to : {from + QPoint(0, 15), QPoint(from.x() + 9, end)})
        moveMouse(bar, to, Qt::LeftButton);
    if (alive)
        QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(from.x() + 9, end));
}

//! Returns the properties of a tab, without its page, as one string.
QString look(const QTabWidget &tabs, int index)
{
    const QTabBar &bar = *tabs.tabBar();
    const auto button = [&](QTabBar::ButtonPosition side) {
        const QWidget *widget = bar.tabButton(index, side);
        return widget
            ? QString(widget->metaObject()->className()) + (widget->isVisible() ? "+" : "-")
            : QString("none");
    };
    return QStringList{
        tabs.tabText(index),           tabs.tabIcon(index).isNull() ? "" : "icon",
        tabs.tabToolTip(index),        tabs.tabWhatsThis(index),
        bar.accessibleTabName(index),  bar.tabTextColor(index).name(),
        bar.tabData(index).toString(), button(QTabBar::LeftSide),
        button(QTabBar::RightSide),    tabs.isTabEnabled(index) ? "enabled" : "disabled"}
        .join(' ');
}

QIcon redIcon()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

QString accessibleName(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object)->text(QAccessible::Name);
}

void pressPopOutKey(QWidget *widget)
{
    QTest::keyClick(widget, Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
}

void triggerContextMenu(QWidget *widget, const QPoint &at, const QString &text)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
    QCoreApplication::sendEvent(widget, &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY2(menu, qPrintable(text));
    const QList<QAction *> actions = menu->actions();
    const auto found = std::find_if(actions.begin(), actions.end(),
                                    [&](const QAction *action) { return action->text() == text; });
    menu->close();
    QVERIFY2(found != actions.end(), qPrintable(text));
    (*found)->trigger();
}

} // namespace

class tst_RVXPopOutTabWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doubleClickAndClose()
    {
        Tabs tabs({"A", "&B", "C"});
        tabs.setTabIcon(1, redIcon());
        QSignalSpy out(&tabs, &RVXPopOutTabWidget::tabPoppedOut);
        QSignalSpy in(&tabs, &RVXPopOutTabWidget::tabPoppedIn);
        QWidget *page = tabs.widget(1);

        QTest::mouseDClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.middleOf(1));
        QCOMPARE(out.size(), 1);
        QCOMPARE(tabs.tabs(), QString("AC"));
        QVERIFY(tabs.isPoppedOut(page));
        QVERIFY(page->isVisible());
        QVERIFY(page->window() != tabs.window());
        QCOMPARE(page->window()->windowTitle(), QString("B"));
        QCOMPARE(accessibleName(page->window()), QString("B"));
        QCOMPARE(page->window()->windowIcon().pixmap(16).toImage().pixelColor(8, 8),
                 QColor(Qt::red));

        page->window()->close();
        QCOMPARE(in.size(), 1);
        QCOMPARE(tabs.tabs(), QString("A&BC"));
        QCOMPARE(tabs.currentWidget(), page);
        QVERIFY(page->isVisible());
        QCOMPARE(accessibleName(tabs.tabBar()), QString("B"));
        QCOMPARE(
            QAccessible::queryAccessibleInterface(tabs.tabBar())->child(1)->text(QAccessible::Name),
            QString("B"));
    }

    //! With buttons of the host, and with a close button.
    void tabComesBackAsItWas()
    {
        for (const bool closable : {false, true}) {
            Tabs tabs({"A", "B"});
            tabs.setTabsClosable(closable);
            tabs.setTabIcon(1, redIcon());
            tabs.setTabToolTip(1, "tip");
            tabs.setTabWhatsThis(1, "what");
            tabs.tabBar()->setAccessibleTabName(1, "second");
            tabs.tabBar()->setTabTextColor(1, Qt::darkGreen);
            tabs.tabBar()->setTabData(1, 17);
            tabs.tabBar()->setTabButton(1, QTabBar::LeftSide, new QCheckBox);
            if (!closable)
                tabs.tabBar()->setTabButton(1, QTabBar::RightSide, new QLabel("R"));
            tabs.setTabEnabled(1, false);
            const QString before = look(tabs, 1);
            QVERIFY2(before.contains("QCheckBox+"), qPrintable(before));
            const int parts = tabs.tabBar()->findChildren<QWidget *>().size();
            for (int i = 0; i < 2; ++i) {
                QWidget *page = tabs.widget(1);
                tabs.popOut(1);
                QVERIFY2(!page->isEnabled(), "as in a disabled tab");
                page->window()->close();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QCOMPARE(look(tabs, 1), before);
                QCOMPARE(tabs.tabBar()->findChildren<QWidget *>().size(), parts);
            }
        }
    }

    void windowsFollowTheMainWindow()
    {
        QMainWindow main;
        QMainWindow other;
        auto *tabs = new Tabs({"A", "B"});
        QWidget *page = tabs->widget(0);
        main.setCentralWidget(tabs);
        tabs->popOut(0); // before the main window is shown
        QWidget *window = page->window();
        main.show();
        other.show();
        for (QMainWindow *in : {&main, &other}) {
            in->setCentralWidget(tabs);
            tabs->show();
            QTRY_VERIFY(window->isVisible());
            QTRY_COMPARE(window->windowHandle()->transientParent(), in->windowHandle());
            in->showMinimized();
            QVERIFY(window->isMinimized());
            in->showNormal();
            QVERIFY(!window->isMinimized());
            window->showMinimized();
            in->showMaximized();
            QVERIFY2(window->isMinimized(), "as the user left it");
            window->showNormal();
            in->showNormal();
            in->close();
            QVERIFY(!window->isVisible());
            QVERIFY(tabs->isPoppedOut(page));
            in->show();
            QTRY_VERIFY(window->isVisible());
            in->hide();
            QVERIFY(!window->isVisible());
        }
    }

    void pagesComeBackToTheirPlaces()
    {
        Tabs tabs({"A", "B", "C", "D"});
        tabs.setMovable(true);
        QWidget *a = tabs.widget(0), *b = tabs.widget(1), *c = tabs.widget(2);
        for (int i = 0; i < 3; ++i)
            tabs.popOut(0);
        QCOMPARE(tabs.poppedOutPages(), (QList<QWidget *>{a, b, c}));
        tabs.popIn(c);
        QCOMPARE(tabs.tabs(), QString("CD"));
        tabs.popIn(a);
        QCOMPARE(tabs.tabs(), QString("ACD"));
        tabs.tabBar()->moveTab(2, 0);
        tabs.addTab(new QLabel("E"), "E");
        tabs.popInAll();
        QCOMPARE(tabs.tabs(), QString("DABCE"));
        tabs.popIn(b);
        tabs.popOut(17);
        tabs.popOut(-1);
        QCOMPARE(tabs.tabs(), QString("DABCE"));
    }

    void dragging_data()
    {
        columns<bool, double, bool>("movable", "heights", "isOut");
        row("fixed tabs, along the bar", false, -0.5, false);
        row("fixed tabs", false, 1.5, true);
        row("movable tabs, within twice the height", true, 1.9, false);
        row("movable tabs, beyond twice the height", true, 2.1, true);
    }
    void dragging()
    {
        Tabs tabs({"A", "B", "C"});
        tabs.setMovable(cell<bool>("movable"));
        QWidget *page = tabs.widget(1);
        dragOffTheBar(tabs.tabBar(), tabs.middleOf(1), cell<double>("heights"));
        QTEST(tabs.isPoppedOut(page), "isOut");
        QCoreApplication::processEvents();
        if (tabs.isPoppedOut(page))
            page->window()->close();
        QCOMPARE(tabs.tabs(), QString("ABC"));
    }

    void keyboardAndMenu()
    {
        Tabs tabs({"A", "B"});
        QWidget *a = tabs.widget(0);
        tabs.activateWindow();
        tabs.tabBar()->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&tabs));
        pressPopOutKey(tabs.tabBar());
        QVERIFY(tabs.isPoppedOut(a));
        QTRY_COMPARE(QApplication::activeWindow(), a->window());
        pressPopOutKey(a->window());
        QCOMPARE(tabs.tabs(), QString("AB"));

        const QPoint onTab = tabs.tabBar()->mapTo(&tabs, tabs.middleOf(1));
        triggerContextMenu(&tabs, onTab, "Open \"B\" in a window");
        QCOMPARE(tabs.tabs(), QString("A"));
        triggerContextMenu(&tabs, tabs.tabBar()->mapTo(&tabs, tabs.middleOf(0)), "Put \"B\" back");
        QCOMPARE(tabs.tabs(), QString("AB"));
    }

    //! If tab widgets are nested and the host uses the same key, the innermost widget with the focus takes it.
    void keyBelongsToTheFocus()
    {
        QMainWindow main;
        auto *hosts = new QAction(&main);
        hosts->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_O);
        main.addAction(hosts);
        QSignalSpy hostsAction(hosts, &QAction::triggered);
        auto *outside = new QLineEdit(&main);
        auto *outer = new Tabs({"A"});
        auto *inner = new Tabs({"X", "Y"});
        outer->insertTab(0, inner, "inner");
        outer->setCurrentIndex(0);
        main.setCentralWidget(outer);
        main.show();
        QVERIFY(QTest::qWaitForWindowActive(&main));
        const auto press = [](QWidget *widget) {
            widget->activateWindow();
            widget->setFocus();
            QTRY_COMPARE(QApplication::focusWidget(), widget);
            pressPopOutKey(widget);
        };
        press(inner->tabBar());
        QCOMPARE(inner->tabs() + outer->tabs(), QString("YinnerA"));
        press(outer->tabBar());
        QCOMPARE(outer->tabs(), QString("A"));
        press(inner->tabBar()); // which is in its window now
        QCOMPARE(inner->count(), 0);
        QVERIFY(outer->isPoppedOut(inner));
        QCOMPARE(hostsAction.size(), 0);
        press(outside);
        QCOMPARE(hostsAction.size(), 1);
        QCOMPARE(outer->tabs(), QString("A"));
    }

    void mayBeDeletedInAnswer_data()
    {
        QTest::addColumn<QString>("way");
        for (const char *way : {"double click", "key", "drag", "closed window", "all back"})
            QTest::newRow(way) << QString(way);
    }
    void mayBeDeletedInAnswer()
    {
        QFETCH(QString, way);
        auto tabs = std::make_unique<Tabs>(QStringList{"A", "B", "C"});
        QPointer<QWidget> page = tabs->widget(1);
        const bool isBack = way == "closed window" || way == "all back";
        for (int i = 0; i < 2 && isBack; ++i)
            tabs->popOut(1);
        const auto kill = [&] { tabs.reset(); };
        connect(tabs.get(), &RVXPopOutTabWidget::tabPoppedOut, this, kill);
        connect(tabs.get(), &RVXPopOutTabWidget::tabPoppedIn, this, kill);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        if (way == "double click")
            QTest::mouseDClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->middleOf(1));
        else if (way == "key")
            QCoreApplication::sendEvent(tabs->tabBar(), &key);
        else if (way == "drag")
            dragOffTheBar(tabs->tabBar(), tabs->middleOf(1), 3);
        else if (way == "closed window")
            page->window()->close();
        else
            tabs->popInAll();
        QVERIFY(!tabs);
        QVERIFY(!page);
    }

    void emptyWidgetLeadsBack()
    {
        Tabs tabs({"A", "B"});
        tabs.popOut(0);
        tabs.popOut(0);
        QCOMPARE(tabs.count(), 0);
        Tabs without({});
        QVERIFY2(tabs.grab().toImage() != without.grab().toImage(), "says where its pages are");
        triggerContextMenu(&tabs, QPoint(200, 150), "Put all back");
        QCOMPARE(tabs.tabs(), QString("AB"));
    }

    void geometryIsRememberedByName()
    {
        enum End {
            Closed,
            DeletedWithTheTabs
        };
        const auto shownAt = [](const QRect &moveTo, End end) {
            Tabs tabs({"remembered page"});
            QWidget *page = tabs.widget(0);
            tabs.popOut(0);
            if (!moveTo.isNull())
                page->window()->setGeometry(moveTo);
            QCoreApplication::processEvents();
            const QRect geometry = page->window()->geometry();
            if (end == Closed)
                page->window()->close();
            return geometry;
        };
        const QRect first(220, 180, 321, 234);
        const QRect second(260, 150, 280, 250);
        shownAt(first, Closed);
        QCOMPARE(shownAt(QRect(), Closed), first);
        shownAt(second, DeletedWithTheTabs);
        QCOMPARE(shownAt(QRect(), Closed), second);
    }

    void deletedWhileOut()
    {
        auto tabs = std::make_unique<Tabs>(QStringList{"A", "B", "C"});
        QPointer<QWidget> a = tabs->widget(0);
        QPointer<QWidget> b = tabs->widget(1);
        QPointer<QWidget> c = tabs->widget(2);
        for (int i = 0; i < 3; ++i)
            tabs->popOut(0);
        QPointer<QWidget> windowOfA = a->window();
        QPointer<QWidget> windowOfC = c->window();
        delete a;
        QCOMPARE(tabs->poppedOutPages().size(), 2);
        QTRY_VERIFY(!windowOfA);
        delete b->window();
        QVERIFY(!b);
        QCOMPARE(tabs->poppedOutPages(), QList<QWidget *>{c});
        tabs.reset();
        QVERIFY(!windowOfC);
        QVERIFY(!c);
    }

    void pageThatMovesElsewhereIsForgotten()
    {
        Tabs tabs({"A", "B"});
        Tabs others({"X"});
        QWidget *a = tabs.widget(0);
        tabs.popOut(0);
        QPointer<QWidget> window = a->window();
        others.addTab(a, "A");
        QVERIFY(!tabs.isPoppedOut(a));
        QTRY_VERIFY(!window);
        QCOMPARE(others.tabs(), QString("XA"));

        QWidget *b = tabs.widget(0);
        tabs.popOut(0);
        tabs.insertTab(0, b, "again");
        QVERIFY(!tabs.isPoppedOut(b));
        QCOMPARE(tabs.tabs(), QString("again"));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXPopOutTabWidget)
#include "tst_RVXPopOutTabWidget.moc"
