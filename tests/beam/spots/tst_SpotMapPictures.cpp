// SPDX-License-Identifier: LGPL-2.1-or-later
// Tests what a spot map shows by its pixels.
#include "tests/beam/spots/SpotMapInTest.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <QGLWidget>

using namespace Corvale_Qt;

class tst_SpotMapPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(paintsAsItShould()); }

    void aSpotIsBrightestWhereItBelongs_data()
    {
        columns<double, double>("x", "y");
        row("top left", -30.0, 30.0);
        row("bottom right", 30.0, -30.0);
        row("between", 11.0, -7.0);
    }

    void aSpotIsBrightestWhereItBelongs()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        // The cornerSpots get no dose: they determine the bounds and are not drawn.
        SpotTable table(QString(cornerSpots).replace(" 10 ", " 0 "));
        table.appendRow(SpotTable::row(x, y, 5, 3));
        MapInTest map(&table);
        const QImage image = map.picture();

        double weight = 0;
        QPointF centre;
        int brightest = 0;
        forEachPixel(image, [&](int column, int row) {
            const int grey = qGray(image.pixel(column, row));
            brightest = qMax(brightest, grey);
            weight += grey;
            centre += grey * QPointF(column + 0.5, row + 0.5);
        });
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

    void aSpotIsAsWideAsItsSigma_data()
    {
        columns<double>("sigma");
        row("narrow", 1.0);
        row("of a few pixels", 3.0);
        row("as wide as usual", 12.0);
        row("wide", 40.0);
    }
    //! A spot on a map of 405 mm, whose bounds come from spots without a dose.
    void aSpotIsAsWideAsItsSigma()
    {
        QFETCH(double, sigma);
        SpotTable table("-200 -200 0 1; 200 200 0 1");
        table.appendRow(SpotTable::row(0, 0, 5, sigma));
        MapInTest map(&table);
        map.resize(810, 810);
        const QImage image = map.picture();
        double weight = 0, squares = 0;
        forEachPixel(image, [&](int column, int row) {
            const double grey = qGray(image.pixel(column, row));
            weight += grey;
            squares += grey * std::pow(column + 0.5 - image.width() / 2.0, 2);
        });
        // A Gaussian that ends at 2.6 sigma has a root mean square width of 0.94 sigma.
        const double rms = std::sqrt(squares / weight) * map.bounds().width() / image.width();
        QVERIFY2(qAbs(rms / sigma - 0.94) < 0.04, qPrintable(QString::number(rms / sigma)));
    }

    void twoSpotsAddUp()
    {
        SpotTable table(cornerSpots + "; 0 0 10 3; 10 0 10 3; 10 0 10 3");
        MapInTest map(&table);
        const double one = map.colorAt(0, 0).redF();
        const double two = map.colorAt(10, 0).redF();
        // Each spot covers a part of what the other one leaves.
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
        QVERIFY(qAbs(negative.blueF() - 0.95) < 0.02 && negative.green() == 0);
        const QColor positive = map.colorAt(-15, 0);
        // The opacity is 0.1 and 0.9 times the part of the full scale, here 2 of 15.
        QVERIFY(qAbs(positive.greenF() - 0.22) < 0.02);
        QCOMPARE(positive.blue(), 0);
        map.setSpotColor(QColor());
        map.setBackgroundColor(QColor());
        QCOMPARE(map.colorAt(0, 0), QColor(Qt::black));
    }

    void aDifferenceIsBlueAboveAndRedBelow()
    {
        // At -15 the map is above its target, at 15 below; at 0 both are the same.
        Comparison pair(cornerSpots + "; -15 0 10 3; 0 0 10 3; 15 0 4 3",
                        cornerSpots + "; -15 0 4 3; 0 0 10 3; 15 0 10 3");
        MapInTest &map = pair.map;
        // The colours of the maps do not matter.
        map.setSpotColor(Qt::red);
        pair.target.setBackgroundColor(Qt::white);
        const QColor above = map.colorAt(-15, 0);
        // Opacities of 0.7 and 0.34: the difference is shown twice as bright.
        QVERIFY2(qAbs(above.blueF() - 2 * (0.7 - 0.34)) < 0.04 && above.red() + above.green() == 0,
                 qPrintable(above.name()));
        const QColor below = map.colorAt(15, 0);
        QVERIFY2(qAbs(below.red() - above.blue()) < 3 && below.blue() + below.green() == 0,
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
        Comparison pair("-30 -30 10 3; 30 -30 10 3", cornerSpots); // the map lacks the upper row
        MapInTest &map = pair.map;
        MapInTest &target = pair.target;
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
        // The target is compared with the map in turn, which has fewer spots or none.
        target.setDiffTarget(&map);
        target.setDisplayMode(SpotMapView::Difference);
        QVERIFY(target.colorAt(30, 30).blue() > 50 && target.colorAt(30, 30).red() == 0);
        pair.actual.removeRows(0, 2);
        for (double x : {-30, 30})
            QVERIFY(map.colorAt(x, -30).red() > 50 && target.colorAt(x, -30).blue() > 50);
        // The bounds follow a target that grows, and are announced.
        changes.clear();
        pair.planned.append("60 0 10 3");
        QVERIFY(map.bounds().contains(60, 0));
        QTRY_COMPARE(changes.count(), 1);
        QVERIFY(map.colorAt(60, 0).red() > 50);
        map.setDiffTarget(nullptr);
        QVERIFY(map.bounds().isEmpty());
    }

    //! The difference shows another position or size of a spot as it does another dose.
    void aDifferenceComparesAllOfASpot_data()
    {
        columns<QString, double>("planned", "x");
        row("to the left", "-4 0 10 3", -6.0);
        row("above", "0 6 10 3", 0.0);
        row("wider", "0 0 10 5", -6.0);
    }
    void aDifferenceComparesAllOfASpot()
    {
        QFETCH(QString, planned);
        QFETCH(double, x);
        Comparison pair(cornerSpots + "; 0 0 10 3", cornerSpots + "; 0 0 10 3");
        MapInTest &map = pair.map;
        const double y = x == 0.0 ? 8.0 : 0.0;
        QCOMPARE(map.colorAt(x, y), QColor(Qt::black));
        // The row is changed cell by cell.
        const SpotTable other(planned);
        for (int column = 1; column < 5; ++column)
            pair.planned.item(4, column)->setData(other.item(0, column)->data(Qt::UserRole),
                                                  Qt::UserRole);
        QVERIFY2(map.colorAt(x, y).red() > 40, qPrintable(map.colorAt(x, y).name()));
    }

    void whatCannotBeShownIsToldInWords_data()
    {
        columns<QString, QString, bool>("spots", "others", "told"); // "-": no comparison
        row("all is well", cornerSpots, "-", false);
        row("all is well in both", cornerSpots, cornerSpots, false);
        row("nothing", "", "-", true);
        row("a spot without a place", cornerSpots + "; nan 0 1 1", "-", true);
        row("nothing to compare with", cornerSpots, "", true);
        row("nothing to compare", "", cornerSpots, true);
        row("no width to compare with", cornerSpots, cornerSpots + "; 0 0 1 0", true);
    }
    void whatCannotBeShownIsToldInWords()
    {
        QFETCH(QString, spots);
        QFETCH(QString, others);
        Comparison pair(spots, others == "-" ? QString() : others);
        if (others == "-")
            pair.map.setDisplayMode(SpotMapView::Data);
        const QImage image = pair.map.picture();
        // Between the upper spots and the edge.
        const QImage edge = image.copy(0, 0, image.width(), image.height() / 8);
        const int white =
            countPixels(edge, [](const QColor &color) { return qGray(color.rgb()) > 250; });
        QTEST(white > 5, "told");
    }

    //! A picture of fewer pixels than the screen has would show blocks.
    void everyPixelOfTheScreenCounts()
    {
        SpotTable table("-30 -30 10 20; 30 30 10 20");
        MapInTest map(&table);
        const QImage image = map.picture();
        int steps = 0; // pixels on the diagonal that differ from the one before
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
        // The new context shares nothing with the old one, which is deleted.
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
        // By itself each map looks the same, since its only spot has its largest dose.
        Comparison pair("0 0 10 3", "0 0 5 3; 40 0 0 3");
        MapInTest &map = pair.map;
        QVERIFY(map.colorAt(0, 0).blue() > 100);
        QCOMPARE(map.colorAt(0, 0).red(), 0);
        pair.planned.setDose(0, 10);
        QCOMPARE(map.colorAt(0, 0), QColor(Qt::black));
        // On the scale of the larger dose the opacities are 0.25 and 0.7.
        pair.planned.setDose(0, 40);
        QVERIFY(qAbs(map.colorAt(0, 0).redF() - 2 * (0.7 - 0.25)) < 0.03);
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
        QFile file(QStringLiteral(CORVALE_QT_DATA_DIR "/dcpt-spot-plans/gantryqa_spots.csv"));
        if (!file.open(QIODevice::ReadOnly))
            QSKIP("the real spot plans are not there");
        file.readLine();
        QVector<QPointF> spots;
        SpotTable table;
        for (int i = 0; i < 117; ++i) {
            const QByteArrayList f = file.readLine().split(',');
            const double x = f[4].toDouble();
            const double y = f[5].toDouble();
            spots << QPointF(x, y);
            table.appendRow(SpotTable::row(x, y, f[6].toDouble(), f[7].toDouble()));
        }
        MapInTest map(&table);
        map.resize(600, 600);
        const QImage image = map.picture();
        const QRectF bounds = map.bounds();
        const auto greyAt = [&](double x, double y) {
            return qGray(
                image.pixel(int((x - bounds.left()) / bounds.width() * image.width()),
                            int((bounds.bottom() - y) / bounds.height() * image.height())));
        };
        // The spots form a grid of 30 mm. They are bright, and the middle between four of them is dark.
        for (const QPointF &spot : spots) {
            QVERIFY(greyAt(spot.x(), spot.y()) > 160);
            if (spot.x() < 120 && spot.y() < 180)
                QCOMPARE(greyAt(spot.x() + 15, spot.y() + 15), 0);
        }
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
