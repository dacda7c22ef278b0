// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"
#include "corvale_qt/beam/spots/MapComparison_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotPictureCache_p.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Spot = SpotMapView::MapSpot;

namespace {

//! What was drawn: "from 3 of 5".
QStringList drawn;

void drawNothing(QPainter &, const SpotList &spots, int first, const SpotStyle &)
{
    drawn << QString("from %1 of %2").arg(first).arg(spots.size());
}

SpotStyle styleOf(const SpotList &spots)
{
    return {QSize(60, 60), 1.0, QRectF(0, 0, 60, 60), spots.largestDose(), Qt::white, Qt::black};
}

Spot spotAt(float x, float dose)
{
    return {x, 30, dose, 3};
}

} // namespace

class tst_SpotPictureCache : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatIsNewIsDrawn()
    {
        SpotPictureCache picture(makeImageBuffer(), drawNothing);
        SpotList spots;
        spots.assign({spotAt(1, 5), spotAt(2, 1)});
        const auto update = [&] {
            drawn.clear();
            picture.update(spots, styleOf(spots));
            return drawn.join(", ");
        };
        QCOMPARE(update(), QString("from 0 of 2"));
        QCOMPARE(update(), QString());
        const quint64 version = picture.version();
        update();
        QCOMPARE(picture.version(), version);
        spots.insert(2, {spotAt(3, 1)});
        spots.insert(3, {spotAt(4, 1)});
        QCOMPARE(update(), QString("from 2 of 4"));
        QVERIFY(picture.version() > version);
        // Several changes are one redraw.
        spots.insert(0, {spotAt(3, 1)});
        spots.remove(1, 1);
        spots.replace(0, spotAt(8, 1));
        QCOMPARE(update(), QString("from 0 of 4"));
        // A new largest dose is another style.
        spots.insert(4, {spotAt(5, 9)});
        QCOMPARE(update(), QString("from 0 of 5"));
        picture.reset();
        QCOMPARE(update(), QString("from 0 of 5"));
    }

    void opacityFollowsTheDose_data()
    {
        QTest::addColumn<float>("dose");
        QTest::addColumn<float>("largest");
        QTest::addColumn<double>("opacity");
        QTest::addColumn<QColor>("color");
        QTest::newRow("none") << 0.0F << 10.0F << 0.0 << QColor(Qt::green);
        QTest::newRow("none at all") << 0.0F << 0.0F << 0.0 << QColor(Qt::green);
        QTest::newRow("smallest") << 1e-6F << 10.0F << 0.1 << QColor(Qt::green);
        QTest::newRow("half of the scale") << 7.5F << 10.0F << 0.55 << QColor(Qt::green);
        QTest::newRow("largest") << 10.0F << 10.0F << 0.7 << QColor(Qt::green);
        QTest::newRow("the cap") << 15.0F << 10.0F << 1.0 << QColor(Qt::green);
        QTest::newRow("above it") << 99.0F << 10.0F << 1.0 << QColor(Qt::green);
        QTest::newRow("negative") << -3.0F << 10.0F << 0.95 << QColor(Qt::blue);
        QTest::newRow("negative only") << -3.0F << 0.0F << 0.95 << QColor(Qt::blue);
    }

    void opacityFollowsTheDose()
    {
        QFETCH(float, dose);
        QFETCH(float, largest);
        QFETCH(double, opacity);
        QFETCH(QColor, color);
        SpotStyle style{QSize(10, 10),
                        1.0,
                        QRectF(-50, -20, 100, 100),
                        largest,
                        Qt::green,
                        Qt::black};
        const auto brush = createBrush({-25, 55, dose, 2}, style);
        const QColor centre = brush->gradient()->stops().first().second;
        QVERIFY(qAbs(centre.alphaF() - opacity) < 1e-4);
        QCOMPARE(brush->center(), QPointF(0.25, 0.25));
        if (opacity > 0) {
            QCOMPARE(QColor(centre.rgb()), color);
            QVERIFY(qAbs(brush->boundingRect().width() - 5.2 * 0.02) < 1e-9);
        } else {
            QVERIFY(brush->boundingRect().isEmpty());
        }
    }

    void aComparisonFollowsBothMaps()
    {
        SpotList map;
        SpotList target;
        map.assign({spotAt(10, 5), spotAt(50, 5)});
        target.assign({spotAt(10, 5)});
        MapComparison comparison;
        const auto colorAt = [&](int x) {
            return comparison.difference(map, target, styleOf(map)).pixelColor(x, 30).name();
        };
        QCOMPARE(colorAt(10), QString("#000000"));
        QCOMPARE(colorAt(50).left(5), QString("#0000"));
        QVERIFY(colorAt(50) != "#000000");
        target.insert(1, {spotAt(50, 5)});
        QCOMPARE(colorAt(50), QString("#000000"));
        QCOMPARE(comparison.targetVersion(), target.version());
        map.remove(0, 1);
        QVERIFY(colorAt(10) != "#000000");
        QCOMPARE(colorAt(10).right(4), QString("0000"));
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotPictureCache)
#include "tst_SpotPictureCache.moc"
