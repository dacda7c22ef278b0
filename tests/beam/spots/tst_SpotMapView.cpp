// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotMapViewColumnMapper.h"
#include "tests/beam/spots/SpotMapInTest.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

class tst_SpotMapView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(paintsAsItShould()); }

    void boundsHoldEverySpot()
    {
        SpotTable table("0 0 1 1; 10 0 1 1; nan 0 1 1; 99 0 1 0; 99 99 inf 1; 99 99 1 -1");
        MapInTest map;
        QSignalSpy changes(&map, &SpotMapView::boundsChanged);
        map.setModel(&table);
        // 10 wide and two reaches of 2.6 sigma; the height follows, around the same centre.
        const QRectF first = around(5, 0, 7.6);
        QCOMPARE(map.bounds(), first);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(changes.last().first().toRectF(), first);
        table.append("5 0 1 1");
        QCOMPARE(changes.count(), 1);
        table.removeRow(1);
        QCOMPARE(changes.count(), 2);
        table.clear();
        QCOMPARE(map.bounds(), QRectF());
        QCOMPARE(map.maxDose(), 0.0F);
        QCOMPARE(map.picture().pixelColor(mapSide / 2, mapSide / 2), QColor(Qt::black));
    }

    void liveInsertionEqualsAFullRedraw()
    {
        SpotTable table(cornerSpots);
        MapInTest live(&table);
        live.setPathColor(QColor(255, 200, 0, 120));
        const auto differenceFromAFreshMap = [&] {
            MapInTest fresh(&table);
            fresh.setPathColor(QColor(255, 200, 0, 120));
            return largestDifference(live.picture(), fresh.picture());
        };
        SpotTable more;
        addRandomSpots(more, 60);
        while (more.rowCount() > 0) {
            table.appendRow(more.takeRow(0));
            if (more.rowCount() % 7 == 0)
                live.picture();
        }
        QCOMPARE(differenceFromAFreshMap(), 0);
        // Growing bounds, and a new largest dose, are a new picture.
        table.append("60 0 10 3; 0 0 99 3");
        QCOMPARE(differenceFromAFreshMap(), 0);
    }

    void rowsAndSpotsStayAligned()
    {
        SpotTable table;
        ModelWatch watch(&table);
        MapInTest map(&table);
        QRandomGenerator random(11);
        for (int step = 0; step < 300; ++step) {
            editAtRandom(table, random, 2, [&random] {
                const double y = random.bounded(80.0) - 40;
                return SpotTable::row(random.bounded(80.0) - 40, y, random.bounded(9.0), 1.5);
            });
            if (step % 50 == 49) {
                MapInTest fresh(&table);
                QCOMPARE(map.bounds(), fresh.bounds());
                QCOMPARE(map.maxDose(), fresh.maxDose());
                QCOMPARE(largestDifference(map.picture(), fresh.picture()), 0);
            }
        }
        QCOMPARE(watch.complaints(), QString());
    }

    void everyStructuralChangeIsFollowed()
    {
        SpotTable table("0 0 1 1; 20 0 2 1; 40 0 3 1");
        QSortFilterProxyModel sorted;
        sorted.setSourceModel(&table);
        sorted.setSortRole(Qt::UserRole);
        MapInTest map(&sorted);
        const QPoint left = map.visualRect(sorted.index(0, 0)).center();
        sorted.sort(4, Qt::DescendingOrder);
        QCOMPARE(map.visualRect(sorted.index(2, 0)).center(), left);
        sorted.setFilterKeyColumn(2);
        sorted.setFilterFixedString("20");
        QCOMPARE(map.bounds(), around(20, 0, 2.6));

        auto *shortLived = new SpotTable("0 0 1 1");
        map.setModel(shortLived);
        QCOMPARE(map.bounds(), around(0, 0, 2.6));
        delete shortLived;
        QCOMPARE(map.bounds(), QRectF());
        map.setModel(nullptr);
        map.picture();
        QTest::keyClick(&map, Qt::Key_Down);
        QTest::mouseClick(map.viewport(), Qt::LeftButton);
    }

    //! A child of the map is deleted after the map's private part.
    void aModelMayBeTheMapsOwn()
    {
        auto *map = new SpotMapView;
        auto *table = new SpotTable("0 0 1 1");
        const QPointer<QAbstractItemModel> watched = table;
        table->setParent(map);
        map->setModel(table);
        delete map;
        QVERIFY(!watched);
    }

    void fieldsThatAreMissingAreNotTakenForZero()
    {
        QStandardItemModel table(1, 5);
        table.setData(table.index(0, 1), 1.0, Qt::UserRole);
        table.setData(table.index(0, 2), 1e300, Qt::UserRole);
        table.setData(table.index(0, 3), 4.0, Qt::UserRole);
        MapInTest map(&table);
        QVERIFY(map.bounds().isEmpty());
        table.setData(table.index(0, 2), 3.0, Qt::UserRole);
        QVERIFY(map.bounds().isEmpty());
        table.setData(table.index(0, 4), 2.0, Qt::UserRole);
        QCOMPARE(map.bounds(), around(3, 4, 2.6));
        QVERIFY(!map.visualRect(table.index(0, 0)).isNull());
    }

    void aMapperSaysWhereTheFieldsLie()
    {
        class Shifted : public SpotMapViewColumnMapper
        {
        public:
            explicit Shifted(bool *deleted)
                : m_deleted(deleted)
            {
            }
            ~Shifted() override { *m_deleted = true; }
            int mapColumnToSource(SpotMapView::MapColumn column) const override
            {
                return column == SpotMapView::XColumn ? 3
                    : column == SpotMapView::YColumn  ? 2
                                                      : column;
            }

        private:
            bool *m_deleted;
        };
        SpotTable table("5 -3 1 1");
        MapInTest map(&table);
        bool deleted = false;
        map.setColumnMapper(new Shifted(&deleted));
        QCOMPARE(map.bounds(), around(-3, 5, 2.6));
        map.setColumnMapper(nullptr);
        QVERIFY(deleted);
        QCOMPARE(map.bounds(), around(5, -3, 2.6));
    }

    void aHiddenTargetIsFollowed()
    {
        Comparison pair("0 0 10 3", "0 0 5 3");
        pair.target.hide();
        QVERIFY(QTest::qWaitForWindowExposed(&pair.map));
        pair.map.picture();
        QCoreApplication::processEvents();
        PaintCounter paints(pair.map.viewport());
        pair.planned.setDose(0, 10);
        QTRY_VERIFY(paints.count > 0);
        // Maps that compare with each other come to rest.
        pair.target.show();
        pair.target.setDiffTarget(&pair.map);
        pair.target.setDisplayMode(SpotMapView::Difference);
        QVERIFY(QTest::qWaitForWindowExposed(&pair.target));
        paints.count = 0;
        pair.actual.setDose(0, 7);
        for (int round = 0; round < 50; ++round)
            QCoreApplication::processEvents();
        QVERIFY(paints.count > 0 && paints.count < 10);
    }

    void aTargetMayBeDeletedFirst()
    {
        SpotTable table("0 0 10 3");
        MapInTest map(&table);
        auto *target = new MapInTest(&table);
        map.setDiffTarget(target);
        map.setDisplayMode(SpotMapView::DifferenceOverlay);
        map.picture();
        QSignalSpy modes(&map, &SpotMapView::displayModeChanged);
        QSignalSpy targets(&map, &SpotMapView::diffTargetChanged);
        delete target;
        QCOMPARE(map.displayMode(), SpotMapView::Data);
        QCOMPARE(modes.count(), 1);
        QCOMPARE(targets.count(), 1);
        QCOMPARE(map.colorAt(0, 0).red(), map.colorAt(0, 0).blue());
        map.setDiffTarget(&map);
        map.setDisplayMode(SpotMapView::Difference);
        QCOMPARE(map.colorAt(0, 0), QColor(Qt::black));
    }

    void aRepaintWithoutChangePaintsNoSpot()
    {
        SpotTable table(cornerSpots);
        MapInTest map(&table);
        const QImage before = map.picture();
        // This change would show if the rows were read again.
        QSignalBlocker silence(&table);
        table.setDose(0, 1);
        QCOMPARE(largestDifference(map.picture(), before), 0);
    }

    void aResizeGivesTheSameMap()
    {
        SpotTable table(cornerSpots);
        addRandomSpots(table, 30);
        MapInTest map(&table);
        map.picture();
        map.resize(300, 160);
        QTRY_COMPARE(map.viewport()->size(), QSize(300, 160));
        MapInTest fresh(&table);
        fresh.resize(300, 160);
        QTRY_COMPARE(fresh.viewport()->size(), QSize(300, 160));
        const QImage image = map.picture();
        QCOMPARE(largestDifference(image, fresh.picture()), 0);
        // The map is the square in the middle, with margins beside it.
        const int ratio = qRound(map.devicePixelRatioF());
        QCOMPARE(image.pixelColor(71 * ratio, 80 * ratio), QColor(Qt::black));
        QCOMPARE(image.pixelColor(69 * ratio, 80 * ratio), map.palette().color(QPalette::Window));
        map.resize(0, 0);
        map.picture();
    }

    void aPointOfTheMapFindsItsSpot()
    {
        SpotTable table("0 0 1 3; 20 0 1 3; 20 0 2 3; 23 0 1 3; nan 0 1 3");
        MapInTest map(&table);
        for (const int row : {0, 2, 3}) {
            const QRect rect = map.visualRect(table.index(row, 0));
            QCOMPARE(map.indexAt(rect.center()).row(), row);
            QCOMPARE(rect.width(), rect.height());
            QVERIFY(qAbs(rect.width() - 5.2 * 3 * mapSide / map.bounds().width()) < 2.5);
        }
        QVERIFY(!map.indexAt(QPoint(2, 2)).isValid());
        QVERIFY(map.visualRect(table.index(4, 0)).isNull());
        QVERIFY(map.visualRect(QModelIndex()).isNull());
        QVERIFY(!map.isIndexHidden(table.index(0, 0)));
    }

    void mouseAndKeyboardSelectRows()
    {
        SpotTable table("0 0 1 3; 20 0 1 3; 20 0 2 3; 40 0 1 3");
        MapInTest map(&table);
        const QImage before = map.picture();
        const QPoint first = map.visualRect(table.index(0, 0)).center();
        QTest::mouseClick(map.viewport(), Qt::LeftButton, {}, first);
        QCOMPARE(selectedRows(map), QString("0"));
        // A ring around the spot is all that changes.
        const QRect ring = differingArea(map.picture(), before);
        const double ratio = map.devicePixelRatioF();
        const double radius = 3 * mapSide * ratio / map.bounds().width();
        QVERIFY((QRectF(ring).center() - ratio * QPointF(first)).manhattanLength() < 3 * ratio);
        QVERIFY(qAbs(ring.width() - 2 * radius) < 6 * ratio);
        // Rows 1 and 2 lie at the same place: the keyboard tells them apart.
        QStringList rows;
        for (Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_End, Qt::Key_Down, Qt::Key_Home}) {
            QTest::keyClick(&map, key);
            rows << selectedRows(map);
        }
        QCOMPARE(rows.join(", "), QString("1, 2, 3, 3, 0"));
        // The parent handles the page keys.
        QKeyEvent page(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
        page.accept();
        QCoreApplication::sendEvent(&map, &page);
        QVERIFY(!page.isAccepted());
        table.removeRows(0, 4);
        map.picture();
    }

    void hoveringTellsTheSpot()
    {
        SpotTable table("0 0 1 3; 20.5 -4 7.25 3");
        MapInTest map(&table);
        const QPoint point = map.visualRect(table.index(1, 0)).center();
        QHelpEvent event(QEvent::ToolTip, point, map.viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(map.viewport(), &event);
        QCOMPARE(QToolTip::text(), QString("Row 2\nX 20.5\nY -4\nDose 7.25\nSigma 3"));
    }

private:
    static QString selectedRows(const SpotMapView &map)
    {
        QStringList rows;
        for (const QModelIndex &index : map.selectionModel()->selectedRows())
            rows << QString::number(index.row());
        return rows.join(' ');
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotMapView)
#include "tst_SpotMapView.moc"
