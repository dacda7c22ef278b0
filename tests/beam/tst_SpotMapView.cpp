// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/SpotMapView.h"
#include "corvale_qt/beam/SpotMapViewColumnMapper.h"
#include "tests/beam/SpotTable.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <QFile>
#include <QHelpEvent>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QToolTip>

using namespace Corvale_Qt;

namespace {

constexpr int side = 200;

//! A shown map of 200 x 200 pixels.
class Map : public SpotMapView
{
public:
    explicit Map(QAbstractItemModel *model = nullptr)
    {
        setFrameShape(NoFrame);
        resize(side, side);
        if (model)
            setModel(model);
        show();
    }

    QImage picture() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }

    //! Of the pixel at a point of the map.
    QColor colourAt(double x, double y)
    {
        const QImage image = picture();
        const double column = (x - bounds().left()) / bounds().width() * image.width();
        const double row = (bounds().bottom() - y) / bounds().height() * image.height();
        return image.pixelColor(qMin(int(column), image.width() - 1),
                                qMin(int(row), image.height() - 1));
    }
};

bool onOpenGl(const SpotMapView &view)
{
    return view.viewport()->inherits("QGLWidget");
}

QRectF around(double x, double y, double reach)
{
    return QRectF(x - reach, y - reach, 2 * reach, 2 * reach);
}

//! Largest difference of any channel of any pixel.
int largestDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = qMax(largest, qAbs(qRed(p) - qRed(q)));
            largest = qMax(largest, qAbs(qGreen(p) - qGreen(q)));
            largest = qMax(largest, qAbs(qBlue(p) - qBlue(q)));
        }
    }
    return largest;
}

//! Spots at random places of a map whose corners and largest dose are fixed.
void addRandomSpots(SpotTable &table, int count)
{
    QRandomGenerator random(7);
    for (int i = 0; i < count; ++i)
        table.appendRow(SpotTable::row(random.bounded(40.0) - 20,
                                       random.bounded(40.0) - 20,
                                       random.bounded(9.0),
                                       2.0));
}

//! The spots of a treatment plan, one row after the other; none where the real readings are missing.
QList<QVector<double>> planSpots(const QString &name)
{
    QList<QVector<double>> spots;
    QFile file(QStringLiteral(CORVALE_QT_DATA_DIR "/dcpt-spot-plans/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return spots;
    file.readLine();
    while (!file.atEnd()) {
        const QByteArrayList f = file.readLine().split(',');
        spots << QVector<double>{f[4].toDouble(),
                                 f[5].toDouble(),
                                 f[6].toDouble(),
                                 f[7].toDouble()};
    }
    return spots;
}

const QString corners = "-30 -30 10 3; 30 -30 10 3; -30 30 10 3; 30 30 10 3";

} // namespace

class tst_SpotMapView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qInfo() << "device pixel ratio" << qApp->devicePixelRatio() << "OpenGL" << onOpenGl(Map());
        // Where there is a display, a fallback that hides a broken OpenGL path would make this test worthless.
        if (QGuiApplication::platformName() == "xcb")
            QVERIFY(onOpenGl(Map()));
    }

    void boundsHoldEverySpot()
    {
        SpotTable table("0 0 1 1; 10 0 1 1; nan 0 1 1; 99 0 1 0; 99 99 inf 1; 99 99 1 -1");
        Map map;
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
        QCOMPARE(map.picture().pixelColor(side / 2, side / 2), QColor(Qt::black));
    }

    void aSpotIsBrightestWhereItBelongs_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::newRow("top left") << -30.0 << 30.0;
        QTest::newRow("top right") << 30.0 << 30.0;
        QTest::newRow("bottom left") << -30.0 << -30.0;
        QTest::newRow("bottom right") << 30.0 << -30.0;
        QTest::newRow("between") << 11.0 << -7.0;
    }

    void aSpotIsBrightestWhereItBelongs()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        // The corners have no dose: they hold the bounds and are not seen.
        SpotTable table(QString(corners).replace(" 10 ", " 0 "));
        table.appendRow(SpotTable::row(x, y, 5, 3));
        Map map(&table);
        const QImage image = map.picture();

        double weight = 0;
        QPointF centre;
        int brightest = 0;
        for (int row = 0; row < image.height(); ++row) {
            for (int column = 0; column < image.width(); ++column) {
                const int grey = qGray(image.pixel(column, row));
                brightest = qMax(brightest, grey);
                weight += grey;
                centre += grey * QPointF(column + 0.5, row + 0.5);
            }
        }
        centre /= weight;
        const QRectF bounds = map.bounds();
        const double pixels = image.width() / bounds.width();
        QVERIFY(qAbs(centre.x() - (x - bounds.left()) * pixels) < 0.6);
        QVERIFY(qAbs(centre.y() - (bounds.bottom() - y) * pixels) < 0.6);
        // The largest dose is at 1 / 1.5 of the scale: opacity 0.7.
        QVERIFY(qAbs(brightest - 0.7 * 255) < 4);
        QVERIFY(qAbs(qGray(map.colourAt(x, y).rgb()) - brightest) < 4);
        // One sigma away it has fallen to exp(-1/2).
        QVERIFY(qAbs(qGray(map.colourAt(x - 3 * (x > 0 ? 1 : -1), y).rgb())
                     - 0.7 * 255 * std::exp(-0.5))
                < 8);
    }

    void twoSpotsAddUp()
    {
        SpotTable table(corners + "; 0 0 10 3; 10 0 10 3; 10 0 10 3");
        Map map(&table);
        const double one = map.colourAt(0, 0).redF();
        const double two = map.colourAt(10, 0).redF();
        // Each covers what the other leaves.
        QVERIFY(qAbs(two - (1 - (1 - one) * (1 - one))) < 0.03);
    }

    void coloursFollowTheDose()
    {
        SpotTable table(corners + "; 0 0 0 3; 15 0 -5 3; -15 0 2 3");
        Map map(&table);
        map.setSpotColor(Qt::green);
        map.setBackgroundColor(QColor(40, 0, 0));
        QCOMPARE(map.colourAt(0, 0), QColor(40, 0, 0));
        const QColor negative = map.colourAt(15, 0);
        QVERIFY(negative.blue() > 230 && negative.green() == 0);
        const QColor positive = map.colourAt(-15, 0);
        // 2 of 15, of which 0.9, and 0.1 in any case.
        QVERIFY(qAbs(positive.greenF() - 0.22) < 0.02);
        QCOMPARE(positive.blue(), 0);
        map.setSpotColor(QColor());
        map.setBackgroundColor(QColor());
        QCOMPARE(map.colourAt(0, 0), QColor(Qt::black));
    }

    void liveInsertionEqualsAFullRedraw()
    {
        SpotTable table(corners);
        Map live(&table);
        live.setPathColor(QColor(255, 200, 0, 120));
        SpotTable more;
        addRandomSpots(more, 60);
        while (more.rowCount() > 0) {
            table.appendRow(more.takeRow(0));
            if (more.rowCount() % 7 == 0)
                live.picture();
        }
        Map whole(&table);
        whole.setPathColor(QColor(255, 200, 0, 120));
        QCOMPARE(largestDifference(live.picture(), whole.picture()), 0);
        // Growing bounds, and a new largest dose, are a new picture.
        table.append("60 0 10 3; 0 0 99 3");
        Map grown(&table);
        grown.setPathColor(QColor(255, 200, 0, 120));
        QCOMPARE(largestDifference(live.picture(), grown.picture()), 0);
    }

    void rowsAndSpotsStayAligned()
    {
        SpotTable table;
        ModelWatch watch(&table);
        Map map(&table);
        QRandomGenerator random(11);
        const auto newRow = [&random] {
            return SpotTable::row(random.bounded(80.0) - 40,
                                  random.bounded(80.0) - 40,
                                  random.bounded(9.0),
                                  1.5);
        };
        for (int step = 0; step < 300; ++step) {
            const int rows = table.rowCount();
            const int action = rows == 0 ? 0 : random.bounded(3);
            if (action == 0) {
                table.insertRow(random.bounded(rows + 1), newRow());
            } else if (action == 1) {
                const int first = random.bounded(rows);
                table.removeRows(first, 1 + random.bounded(qMin(3, rows - first)));
            } else {
                table.item(random.bounded(rows), 2)
                    ->setData(random.bounded(80.0) - 40, Qt::UserRole);
            }
            if (step % 50 == 49) {
                Map fresh(&table);
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
        Map map(&sorted);
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

    //! As a child it is deleted after the rest of the map.
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
        Map map(&table);
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
        Map map(&table);
        bool deleted = false;
        map.setColumnMapper(new Shifted(&deleted));
        QCOMPARE(map.bounds(), around(-3, 5, 2.6));
        map.setColumnMapper(nullptr);
        QVERIFY(deleted);
        QCOMPARE(map.bounds(), around(5, -3, 2.6));
    }

    void aDifferenceIsBlueAboveAndRedBelow()
    {
        // At -15 the map is above its target, at 15 below; at 0 both are the same.
        SpotTable actual(corners + "; -15 0 10 3; 0 0 10 3; 15 0 4 3");
        SpotTable planned(corners + "; -15 0 4 3; 0 0 10 3; 15 0 10 3");
        Map map(&actual);
        Map target(&planned);
        // Neither map's colours shall turn the answer around.
        map.setSpotColor(Qt::red);
        target.setBackgroundColor(Qt::white);
        map.setDiffTarget(&target);
        map.setDisplayMode(SpotMapView::Difference);
        const QColor above = map.colourAt(-15, 0);
        QVERIFY2(above.blue() > 60 && above.red() == 0 && above.green() == 0,
                 qPrintable(above.name()));
        const QColor below = map.colourAt(15, 0);
        QVERIFY2(below.red() > 60 && below.blue() == 0 && below.green() == 0,
                 qPrintable(below.name()));
        QCOMPARE(map.colourAt(0, 0), QColor(Qt::black));

        map.setSpotColor(Qt::green);
        map.setDisplayMode(2);
        const QColor overlaid = map.colourAt(-15, 0);
        QVERIFY(overlaid.green() > 150 && qAbs(overlaid.blue() - above.blue() / 2) < 3);
        map.setDisplayMode(77);
        QCOMPARE(map.displayMode(), SpotMapView::DifferenceOverlay);
    }

    void aDifferenceComparesDosesNotPictures()
    {
        // Each map by itself looks the same: its only spot has its largest dose. And the target's bounds differ.
        SpotTable actual("0 0 10 3");
        SpotTable planned("0 0 5 3; 40 0 0 3");
        Map map(&actual);
        Map target(&planned);
        map.setDiffTarget(&target);
        map.setDisplayMode(SpotMapView::Difference);
        QVERIFY(map.colourAt(0, 0).blue() > 100);
        QCOMPARE(map.colourAt(0, 0).red(), 0);
        planned.setDose(0, 10);
        QCOMPARE(map.colourAt(0, 0), QColor(Qt::black));
        planned.setDose(0, 20);
        QVERIFY(map.colourAt(0, 0).red() > 100);
    }

    void aHiddenTargetIsFollowed()
    {
        SpotTable actual("0 0 10 3");
        SpotTable planned("0 0 5 3");
        Map map(&actual);
        Map target(&planned);
        target.hide();
        map.setDiffTarget(&target);
        map.setDisplayMode(SpotMapView::Difference);
        QVERIFY(QTest::qWaitForWindowExposed(&map));
        map.picture();
        PaintCounter paints(map.viewport());
        QCoreApplication::processEvents();
        paints.count = 0;
        planned.setDose(0, 10);
        QTRY_VERIFY(paints.count > 0);
    }

    void mapsThatCompareWithEachOtherComeToRest()
    {
        SpotTable one("0 0 10 3");
        SpotTable other("0 0 5 3");
        Map first(&one);
        Map second(&other);
        for (Map *map : {&first, &second}) {
            map->setDiffTarget(map == &first ? &second : &first);
            map->setDisplayMode(SpotMapView::Difference);
            QVERIFY(QTest::qWaitForWindowExposed(map));
        }
        one.setDose(0, 7);
        PaintCounter paints(first.viewport());
        for (int round = 0; round < 50; ++round)
            QCoreApplication::processEvents();
        QVERIFY(paints.count > 0);
        QVERIFY(paints.count < 10);
    }

    void aTargetMayBeDeletedFirst()
    {
        SpotTable table("0 0 10 3");
        Map map(&table);
        auto *target = new Map(&table);
        map.setDiffTarget(target);
        map.setDisplayMode(SpotMapView::DifferenceOverlay);
        map.picture();
        QSignalSpy modes(&map, &SpotMapView::displayModeChanged);
        QSignalSpy targets(&map, &SpotMapView::diffTargetChanged);
        delete target;
        QCOMPARE(map.displayMode(), SpotMapView::Data);
        QCOMPARE(modes.count(), 1);
        QCOMPARE(targets.count(), 1);
        QCOMPARE(map.colourAt(0, 0).red(), map.colourAt(0, 0).blue());
        map.setDiffTarget(&map);
        map.setDisplayMode(SpotMapView::Difference);
        QCOMPARE(map.colourAt(0, 0), QColor(Qt::black));
    }

    void aRepaintWithoutChangePaintsNoSpot()
    {
        SpotTable table(corners);
        Map map(&table);
        const QImage before = map.picture();
        // If the rows were read, or the spots drawn, again, this would show.
        QSignalBlocker silence(&table);
        table.setDose(0, 1);
        QCOMPARE(largestDifference(map.picture(), before), 0);
    }

    void aPathJoinsTheSpotsInTheirOrder()
    {
        SpotTable table("-30 -30 0 3; 30 -30 0 3; nan 5 1 1; 30 30 0 3");
        Map map(&table);
        QCOMPARE(map.colourAt(0, -30), QColor(Qt::black));
        map.setPathColor(Qt::yellow);
        QVERIFY(map.colourAt(0, -29.9).red() > 100);
        QVERIFY(map.colourAt(29.9, 0).red() > 100);
        QCOMPARE(map.colourAt(-29.9, 0), QColor(Qt::black));
        map.setPathColor(QColor());
        QCOMPARE(map.colourAt(0, -29.9), QColor(Qt::black));
    }

    void aResizeGivesTheSameMap()
    {
        SpotTable table(corners);
        addRandomSpots(table, 30);
        Map map(&table);
        map.picture();
        map.resize(300, 160);
        QTRY_COMPARE(map.viewport()->size(), QSize(300, 160));
        Map fresh(&table);
        fresh.resize(300, 160);
        QTRY_COMPARE(fresh.viewport()->size(), QSize(300, 160));
        const QImage image = map.picture();
        QCOMPARE(largestDifference(image, fresh.picture()), 0);
        // The square in the middle, and nothing of it in the margins.
        const int ratio = qRound(map.devicePixelRatioF());
        QCOMPARE(image.pixelColor(71 * ratio, 80 * ratio), QColor(Qt::black));
        QCOMPARE(image.pixelColor(69 * ratio, 80 * ratio), map.palette().color(QPalette::Window));
        map.resize(0, 0);
        map.picture();
    }

    void aPointOfTheMapFindsItsSpot()
    {
        SpotTable table("0 0 1 3; 20 0 1 3; 20 0 2 3; 23 0 1 3; nan 0 1 3");
        Map map(&table);
        for (const int row : {0, 2, 3}) {
            const QRect rect = map.visualRect(table.index(row, 0));
            QCOMPARE(map.indexAt(rect.center()).row(), row);
            QCOMPARE(rect.width(), rect.height());
            QVERIFY(qAbs(rect.width() - 5.2 * 3 * side / map.bounds().width()) < 2.5);
        }
        QVERIFY(!map.indexAt(QPoint(2, 2)).isValid());
        QVERIFY(map.visualRect(table.index(4, 0)).isNull());
        QVERIFY(map.visualRect(QModelIndex()).isNull());
        QVERIFY(!map.isIndexHidden(table.index(0, 0)));
    }

    void mouseAndKeyboardSelectRows()
    {
        SpotTable table("0 0 1 3; 20 0 1 3; 20 0 2 3; 40 0 1 3");
        Map map(&table);
        const QImage before = map.picture();
        const QPoint first = map.visualRect(table.index(0, 0)).center();
        QTest::mouseClick(map.viewport(), Qt::LeftButton, {}, first);
        QCOMPARE(selectedRows(map), QString("0"));
        QVERIFY(largestDifference(map.picture(), before) > 50);
        // Rows 1 and 2 lie at the same place: the keyboard tells them apart.
        QTest::keyClick(&map, Qt::Key_Down);
        QCOMPARE(selectedRows(map), QString("1"));
        QTest::keyClick(&map, Qt::Key_Right);
        QCOMPARE(selectedRows(map), QString("2"));
        QTest::keyClick(&map, Qt::Key_End);
        QCOMPARE(selectedRows(map), QString("3"));
        QTest::keyClick(&map, Qt::Key_Down);
        QCOMPARE(selectedRows(map), QString("3"));
        QTest::keyClick(&map, Qt::Key_Home);
        QCOMPARE(selectedRows(map), QString("0"));
        // Pages are the holder's.
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
        Map map(&table);
        const QPoint point = map.visualRect(table.index(1, 0)).center();
        QHelpEvent event(QEvent::ToolTip, point, map.viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(map.viewport(), &event);
        QCOMPARE(QToolTip::text(), QString("Row 2\nX 20.5\nY -4\nDose 7.25\nSigma 3"));
    }

    void aRealPatternIsWhereItWasPlanned()
    {
        const QList<QVector<double>> spots = planSpots("gantryqa_spots.csv").mid(0, 117);
        if (spots.isEmpty())
            QSKIP("the real spot plans are not there");
        SpotTable table;
        for (const QVector<double> &spot : spots)
            table.appendRow(SpotTable::row(spot[0], spot[1], spot[2], spot[3]));
        Map map(&table);
        map.resize(600, 600);
        const QImage image = map.picture();
        const QRectF bounds = map.bounds();
        const auto greyAt = [&](double x, double y) {
            return qGray(
                image.pixel(int((x - bounds.left()) / bounds.width() * image.width()),
                            int((bounds.bottom() - y) / bounds.height() * image.height())));
        };
        // A grid of 30 mm: every spot is bright, and it is dark in the middle between four of them.
        for (const QVector<double> &spot : spots) {
            QVERIFY(greyAt(spot[0], spot[1]) > 160);
            if (spot[0] < 120 && spot[1] < 180)
                QCOMPARE(greyAt(spot[0] + 15, spot[1] + 15), 0);
        }
    }

    void aWholePlanGrowsLive()
    {
        const QList<QVector<double>> spots = planSpots("plan01_spots.csv");
        if (spots.isEmpty())
            QSKIP("the real spot plans are not there");
        SpotTable table;
        Map live(&table);
        QRectF extent;
        float largest = 0;
        for (int i = 0; i < spots.size(); ++i) {
            const QVector<double> &spot = spots.at(i);
            table.appendRow(SpotTable::row(spot[0], spot[1], spot[2], spot[3]));
            extent |= around(spot[0], spot[1], 2.6 * spot[3]);
            largest = qMax(largest, float(spot[2]));
            if (i % 300 == 0)
                live.picture();
        }
        QCOMPARE(spots.size(), 6069);
        QCOMPARE(live.maxDose(), largest);
        QVERIFY(qAbs(live.bounds().width() - qMax(extent.width(), extent.height())) < 1e-4);
        QVERIFY((live.bounds().center() - extent.center()).manhattanLength() < 1e-4);
        Map whole(&table);
        QCOMPARE(largestDifference(live.picture(), whole.picture()), 0);
    }

    void openGlAndTheFallbackAgree()
    {
        SpotTable table(corners);
        addRandomSpots(table, 100);
        Map map(&table);
        if (!onOpenGl(map))
            QSKIP("no OpenGL here");
        qputenv("CORVALE_QT_NO_OPENGL", "1");
        Map fallback(&table);
        qunsetenv("CORVALE_QT_NO_OPENGL");
        QVERIFY(!onOpenGl(fallback));
        QVERIFY(largestDifference(map.picture(), fallback.picture()) <= 12);
    }

private:
    class PaintCounter : public QObject
    {
    public:
        explicit PaintCounter(QObject *watched) { watched->installEventFilter(this); }
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint;
            return false;
        }
        int count = 0;
    };

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
