// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXPopOutTabWidget.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QTabBar>

using namespace Corvale_Qt;

namespace {

//! A shown tab widget with one page for each name; the order of its tabs as one string.
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

void dragOffTheBar(QTabBar *bar, const QPoint &from)
{
    QTest::mousePress(bar, Qt::LeftButton, {}, from);
    for (const QPoint &to : {from + QPoint(0, 15), from + QPoint(5, 80), from + QPoint(9, 120)}) {
        QMouseEvent move(QEvent::MouseMove,
                         to,
                         bar->mapToGlobal(to),
                         Qt::NoButton,
                         Qt::LeftButton,
                         {});
        QCoreApplication::sendEvent(bar, &move);
    }
    QTest::mouseRelease(bar, Qt::LeftButton, {}, from + QPoint(9, 120));
}

void triggerContextMenu(QWidget *widget, const QPoint &at, const QString &text)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
    QCoreApplication::sendEvent(widget, &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY2(menu, qPrintable(text));
    QStringList seen;
    for (QAction *action : menu->actions()) {
        seen << action->text();
        if (action->text() == text) {
            menu->close();
            action->trigger();
            return;
        }
    }
    menu->close();
    QFAIL(qPrintable(text + " is not among " + seen.join(", ")));
}

} // namespace

class tst_RVXPopOutTabWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doubleClickAndClose()
    {
        Tabs tabs({"A", "&B", "C"});
        tabs.setTabToolTip(1, "tip");
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::red);
        tabs.setTabIcon(1, QIcon(pixmap));
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
        QCOMPARE(page->window()->windowIcon().pixmap(16).toImage().pixelColor(8, 8),
                 QColor(Qt::red));

        page->window()->close();
        QCOMPARE(in.size(), 1);
        QCOMPARE(tabs.tabs(), QString("A&BC"));
        QCOMPARE(tabs.currentWidget(), page);
        QVERIFY(page->isVisible());
        QCOMPARE(tabs.tabToolTip(1), QString("tip"));
    }

    void pagesComeBackToTheirPlaces()
    {
        Tabs tabs({"A", "B", "C", "D"});
        tabs.setMovable(true);
        QWidget *a = tabs.widget(0);
        QWidget *b = tabs.widget(1);
        QWidget *c = tabs.widget(2);
        tabs.popOut(0);
        tabs.popOut(0);
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
        QTest::addColumn<bool>("movable");
        QTest::newRow("fixed tabs") << false;
        QTest::newRow("movable tabs") << true;
    }
    void dragging()
    {
        QFETCH(bool, movable);
        Tabs tabs({"A", "B", "C"});
        tabs.setMovable(movable);
        QWidget *page = tabs.widget(1);
        dragOffTheBar(tabs.tabBar(), tabs.middleOf(1));
        QVERIFY(tabs.isPoppedOut(page));
        QCOMPARE(tabs.tabs(), QString("AC"));
        QCoreApplication::processEvents();
        page->window()->close();
        QCOMPARE(tabs.tabs(), QString("ABC"));
    }

    void draggingAlongTheBarKeepsTheTab()
    {
        Tabs tabs({"A", "B", "C"});
        const QPoint from = tabs.middleOf(0);
        QTest::mousePress(tabs.tabBar(), Qt::LeftButton, {}, from);
        QTest::mouseMove(tabs.tabBar(), tabs.middleOf(2) + QPoint(0, 4));
        QTest::mouseRelease(tabs.tabBar(), Qt::LeftButton, {}, tabs.middleOf(2));
        QCOMPARE(tabs.tabs(), QString("ABC"));
    }

    void keyboardAndMenu()
    {
        Tabs tabs({"A", "B"});
        QWidget *a = tabs.widget(0);
        tabs.activateWindow();
        tabs.tabBar()->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&tabs));
        QTest::keyClick(tabs.tabBar(), Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(tabs.isPoppedOut(a));
        QTRY_COMPARE(QApplication::activeWindow(), a->window());
        QTest::keyClick(a->window(), Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(tabs.tabs(), QString("AB"));

        const QPoint onTab = tabs.tabBar()->mapTo(&tabs, tabs.middleOf(1));
        triggerContextMenu(&tabs, onTab, "Open \"B\" in a window");
        QCOMPARE(tabs.tabs(), QString("A"));
        triggerContextMenu(&tabs, tabs.tabBar()->mapTo(&tabs, tabs.middleOf(0)), "Put \"B\" back");
        QCOMPARE(tabs.tabs(), QString("AB"));
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
