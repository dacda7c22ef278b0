// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotPictureCache_p.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Spot = SpotMapView::MapSpot;

namespace {

//! Each call of the drawing function, such as "from 3 of 5".
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
        SpotPictureCache picture(makePaintedLayer(makeImageBuffer(), drawNothing));
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
        spots.remove(2, 1);
        spots.replace(0, spotAt(8, 1));
        QCOMPARE(update(), QString("from 0 of 4"));
        // A new largest dose is another style.
        spots.insert(4, {spotAt(5, 9)});
        QCOMPARE(update(), QString("from 0 of 5"));
        picture.reset();
        QCOMPARE(update(), QString("from 0 of 5"));
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotPictureCache)
#include "tst_SpotPictureCache.moc"
