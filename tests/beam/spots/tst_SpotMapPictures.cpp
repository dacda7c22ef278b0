// SPDX-License-Identifier: LGPL-2.1-or-later
// What a spot map shows, by its pixels.
#include "tests/beam/spots/SpotMapInTest.h"
#include "tests/support/TestMain.h"

#include <QFile>
#include <QGLWidget>
#include <QSignalSpy>

using namespace Corvale_Qt;

namespace {

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

} // namespace

class tst_SpotMapPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(paintsAsItShould()); }

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
        // The cornerSpots have no dose: they hold the bounds and are not seen.
        SpotTable table(QString(cornerSpots).replace(" 10 ", " 0 "));
        table.appendRow(SpotTable::row(x, y, 5, 3));
        MapInTest map(&table);
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
        QVERIFY(qAbs(qGray(map.colorAt(x, y).rgb()) - brightest) < 4);
        // One sigma away it has fallen to exp(-1/2).
        QVERIFY(
            qAbs(qGray(map.colorAt(x - 3 * (x > 0 ? 1 : -1), y).rgb()) - 0.7 * 255 * std::exp(-0.5))
            < 8);
    }

    void twoSpotsAddUp()
    {
        SpotTable table(cornerSpots + "; 0 0 10 3; 10 0 10 3; 10 0 10 3");
        MapInTest map(&table);
        const double one = map.colorAt(0, 0).redF();
        const double two = map.colorAt(10, 0).redF();
        // Each covers what the other leaves.
        QVERIFY(qAbs(two - (1 - (1 - one) * (1 - one))) < 0.03);
    }

    void colorsFollowTheDose()
    {
        SpotTable table(cornerSpots + "; 0 0 0 3; 15 0 -5 3; -15 0 2 3");
        MapInTest map(&table);
        map.setSpotColor(Qt::green);
        map.setBackgroundColor(QColor(40, 0, 0));
        QCOMPARE(map.colorAt(0, 0), QColor(40, 0, 0));
        const QColor negative = map.colorAt(15, 0);
        QVERIFY(negative.blue() > 230 && negative.green() == 0);
        const QColor positive = map.colorAt(-15, 0);
        // 2 of 15, of which 0.9, and 0.1 in any case.
        QVERIFY(qAbs(positive.greenF() - 0.22) < 0.02);
        QCOMPARE(positive.blue(), 0);
        map.setSpotColor(QColor());
        map.setBackgroundColor(QColor());
        QCOMPARE(map.colorAt(0, 0), QColor(Qt::black));
    }

    void aDifferenceIsBlueAboveAndRedBelow()
    {
        // At -15 the map is above its target, at 15 below; at 0 both are the same.
        SpotTable actual(cornerSpots + "; -15 0 10 3; 0 0 10 3; 15 0 4 3");
        SpotTable planned(cornerSpots + "; -15 0 4 3; 0 0 10 3; 15 0 10 3");
        MapInTest map(&actual);
        MapInTest target(&planned);
        // Neither map's colors shall turn the answer around.
        map.setSpotColor(Qt::red);
        target.setBackgroundColor(Qt::white);
        map.setDiffTarget(&target);
        map.setDisplayMode(SpotMapView::Difference);
        const QColor above = map.colorAt(-15, 0);
        QVERIFY2(above.blue() > 60 && above.red() == 0 && above.green() == 0,
                 qPrintable(above.name()));
        const QColor below = map.colorAt(15, 0);
        QVERIFY2(below.red() > 60 && below.blue() == 0 && below.green() == 0,
                 qPrintable(below.name()));
        QCOMPARE(map.colorAt(0, 0), QColor(Qt::black));

        map.setSpotColor(Qt::green);
        map.setDisplayMode(2);
        const QColor overlaid = map.colorAt(-15, 0);
        QVERIFY(overlaid.green() > 150 && qAbs(overlaid.blue() - above.blue() / 2) < 3);
        map.setDisplayMode(77);
        QCOMPARE(map.displayMode(), SpotMapView::DifferenceOverlay);
    }

    void aDifferenceShowsWhatOnlyOneMapHas()
    {
        const QRectF both = around(0, 0, 30 + 2.6 * 3);
        SpotTable planned(cornerSpots);
        SpotTable actual("-30 -30 10 3; 30 -30 10 3"); // without the upper row
        MapInTest map(&actual);
        MapInTest target(&planned);
        map.setDiffTarget(&target);
        QSignalSpy changes(&map, &SpotMapView::boundsChanged);
        for (SpotMapView::DisplayMode mode :
             {SpotMapView::Difference, SpotMapView::DifferenceOverlay}) {
            map.setDisplayMode(SpotMapView::Data);
            QVERIFY(!map.bounds().contains(0, 30));
            changes.clear();
            map.setDisplayMode(mode);
            QCOMPARE(map.bounds(), both);
            QCOMPARE(changes.count(), 1);
            QVERIFY(map.colorAt(30, 30).red() > 50 && map.colorAt(30, 30).blue() == 0);
        }
        map.setDisplayMode(SpotMapView::Difference);
        // And the other way round, the map having all and the target less, or nothing.
        target.setDiffTarget(&map);
        target.setDisplayMode(SpotMapView::Difference);
        QVERIFY(target.colorAt(30, 30).blue() > 50 && target.colorAt(30, 30).red() == 0);
        actual.removeRows(0, 2);
        for (double x : {-30, 30})
            QVERIFY(map.colorAt(x, -30).red() > 50 && target.colorAt(x, -30).blue() > 50);
        // A target that grows is followed, and hosts hear of it.
        changes.clear();
        planned.append("60 0 10 3");
        QVERIFY(map.bounds().contains(60, 0));
        QTRY_COMPARE(changes.count(), 1);
        QVERIFY(map.colorAt(60, 0).red() > 50);
        map.setDiffTarget(nullptr);
        QVERIFY(map.bounds().isEmpty());
    }

    //! Position and size count as much as the dose does.
    void aDifferenceComparesAllOfASpot_data()
    {
        QTest::addColumn<QString>("planned");
        QTest::addColumn<double>("x");
        QTest::newRow("to the left") << "-4 0 10 3" << -6.0;
        QTest::newRow("above") << "0 6 10 3" << 0.0;
        QTest::newRow("wider") << "0 0 10 5" << -6.0;
    }
    void aDifferenceComparesAllOfASpot()
    {
        QFETCH(QString, planned);
        QFETCH(double, x);
        SpotTable actual(cornerSpots + "; 0 0 10 3");
        SpotTable plan(cornerSpots + "; 0 0 10 3");
        MapInTest map(&actual);
        MapInTest target(&plan);
        map.setDiffTarget(&target);
        map.setDisplayMode(SpotMapView::Difference);
        const double y = x == 0.0 ? 8.0 : 0.0;
        QCOMPARE(map.colorAt(x, y), QColor(Qt::black));
        // Changed cell by cell, as an editor would.
        const SpotTable other(planned);
        for (int column = 1; column < 5; ++column)
            plan.item(4, column)->setData(other.item(0, column)->data(Qt::UserRole), Qt::UserRole);
        QVERIFY2(map.colorAt(x, y).red() > 40, qPrintable(map.colorAt(x, y).name()));
    }

    void whatCannotBeShownIsToldInWords_data()
    {
        QTest::addColumn<QString>("spots");
        QTest::addColumn<QString>("others"); // "-": no comparison
        QTest::addColumn<bool>("told");
        QTest::newRow("all is well") << cornerSpots << "-" << false;
        QTest::newRow("all is well in both") << cornerSpots << cornerSpots << false;
        QTest::newRow("nothing") << ""
                                 << "-" << true;
        QTest::newRow("a spot without a place") << cornerSpots + "; nan 0 1 1"
                                                << "-" << true;
        QTest::newRow("nothing to compare with") << cornerSpots << "" << true;
        QTest::newRow("nothing to compare") << "" << cornerSpots << true;
        QTest::newRow("one to compare with has no width")
            << cornerSpots << cornerSpots + "; 0 0 1 0" << true;
    }
    void whatCannotBeShownIsToldInWords()
    {
        QFETCH(QString, spots);
        QFETCH(QString, others);
        QFETCH(bool, told);
        SpotTable table(spots);
        SpotTable otherTable(others == "-" ? QString() : others);
        MapInTest map(&table);
        MapInTest other(&otherTable);
        if (others != "-") {
            map.setDiffTarget(&other);
            map.setDisplayMode(SpotMapView::Difference);
        }
        const QImage image = map.picture();
        int white = 0; // on the ground between the upper spots and the edge
        for (int y = 0; y < image.height() / 8; ++y) {
            for (int x = 0; x < image.width(); ++x)
                white += qGray(image.pixel(x, y)) > 250;
        }
        QCOMPARE(white > 5, told);
    }

    //! A picture of fewer pixels than the screen has would show blocks.
    void everyPixelOfTheScreenCounts()
    {
        SpotTable table("-30 -30 10 20; 30 30 10 20");
        MapInTest map(&table);
        const QImage image = map.picture();
        int steps = 0; // from one pixel to the next in the same direction
        for (int x = 1; x < image.width(); ++x)
            steps += image.pixel(x, image.height() - x) != image.pixel(x - 1, image.height() - x);
        const int ratio = qRound(image.devicePixelRatio());
        QVERIFY(image.width() == mapSide * ratio);
        QVERIFY2(steps > 0.6 * mapSide * ratio, qPrintable(QString::number(steps)));
    }

    void aRenewedContextPaintsAgain()
    {
        SpotTable table(cornerSpots);
        MapInTest map(&table);
        auto *widget = qobject_cast<QGLWidget *>(map.viewport());
        if (!widget)
            QSKIP("no OpenGL here");
        const QImage before = map.picture();
        // One that shares nothing with the one before, which is deleted.
        auto *context = new QGLContext(widget->format(), widget);
        QVERIFY(context->create());
        widget->setContext(context);
        widget->show(); // Qt hides it for this
        QVERIFY(widget->isValid());
        QCOMPARE(largestDifference(map.picture(), before), 0);
        table.append("0 0 10 3");
        MapInTest fresh(&table);
        QCOMPARE(largestDifference(map.picture(), fresh.picture()), 0);
    }

    void aDifferenceComparesDosesNotPictures()
    {
        // Each map by itself looks the same: its only spot has its largest dose. And the target's bounds differ.
        SpotTable actual("0 0 10 3");
        SpotTable planned("0 0 5 3; 40 0 0 3");
        MapInTest map(&actual);
        MapInTest target(&planned);
        map.setDiffTarget(&target);
        map.setDisplayMode(SpotMapView::Difference);
        QVERIFY(map.colorAt(0, 0).blue() > 100);
        QCOMPARE(map.colorAt(0, 0).red(), 0);
        planned.setDose(0, 10);
        QCOMPARE(map.colorAt(0, 0), QColor(Qt::black));
        planned.setDose(0, 20);
        QVERIFY(map.colorAt(0, 0).red() > 100);
    }

    void aPathJoinsTheSpotsInTheirOrder()
    {
        SpotTable table("-30 -30 0 3; 30 -30 0 3; nan 5 1 1; 30 30 0 3");
        MapInTest map(&table);
        QCOMPARE(map.colorAt(0, -30), QColor(Qt::black));
        map.setPathColor(Qt::yellow);
        QVERIFY(map.colorAt(0, -29.9).red() > 100);
        QVERIFY(map.colorAt(29.9, 0).red() > 100);
        QCOMPARE(map.colorAt(-29.9, 0), QColor(Qt::black));
        map.setPathColor(QColor());
        QCOMPARE(map.colorAt(0, -29.9), QColor(Qt::black));
    }

    void aRealPatternIsWhereItWasPlanned()
    {
        const QList<QVector<double>> spots = planSpots("gantryqa_spots.csv").mid(0, 117);
        if (spots.isEmpty())
            QSKIP("the real spot plans are not there");
        SpotTable table;
        for (const QVector<double> &spot : spots)
            table.appendRow(SpotTable::row(spot[0], spot[1], spot[2], spot[3]));
        MapInTest map(&table);
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
        MapInTest live(&table);
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
        MapInTest whole(&table);
        QCOMPARE(largestDifference(live.picture(), whole.picture()), 0);
    }

    void openGlAndTheFallbackAgree()
    {
        SpotTable table(cornerSpots);
        addRandomSpots(table, 100);
        MapInTest map(&table);
        if (!onOpenGl(map))
            QSKIP("no OpenGL here");
        qputenv("CORVALE_QT_NO_OPENGL", "1");
        MapInTest fallback(&table);
        qunsetenv("CORVALE_QT_NO_OPENGL");
        QVERIFY(!onOpenGl(fallback));
        QVERIFY(largestDifference(map.picture(), fallback.picture()) <= 12);
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotMapPictures)
#include "tst_SpotMapPictures.moc"
