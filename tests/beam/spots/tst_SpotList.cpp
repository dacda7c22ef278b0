// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotHitTest_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Spot = SpotMapView::MapSpot;

namespace {

//! Returns the fields of all spots and what the list knows about them.
QString textOf(const SpotList &list)
{
    QString text;
    QDebug out(&text);
    out << list.extent() << list.largestDose() << list.drawableCount();
    for (int row = 0; row < list.size(); ++row)
        out << list.at(row).x << list.at(row).y << list.at(row).dose << list.at(row).sigma;
    return text;
}

} // namespace

class tst_SpotList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void staysAlignedWithAPlainList()
    {
        QRandomGenerator random(3);
        const auto newSpot = [&random]() -> Spot {
            const float broken[] = {float(qQNaN()), float(qInf())};
            Spot spot{float(random.bounded(20)),
                      float(random.bounded(20)),
                      float(random.bounded(9)),
                      1};
            if (random.bounded(6) == 0)
                spot.x = broken[random.bounded(2)];
            if (random.bounded(6) == 0)
                spot.sigma = -float(random.bounded(2));
            return spot;
        };
        SpotList list;
        QVector<Spot> plain;
        // First with few rows, then with enough for several blocks.
        for (int step = 0; step < 3000; ++step) {
            if (step == 2000) {
                QVector<Spot> many;
                for (int i = 0; i < 500; ++i)
                    many << newSpot();
                list.insert(qMin(1, plain.size()), many);
                plain = plain.mid(0, 1) + many + plain.mid(1);
            } else if (step == 2100) {
                list.remove(100, 270);
                plain.remove(100, 270);
            }
            const int row = random.bounded(plain.size() + 1);
            const quint64 rewrites = list.rewrites();
            switch (random.bounded(plain.size() % 250 > 12 ? 4 : 3)) {
            case 0: {
                const QVector<Spot> added{newSpot(), newSpot()};
                list.insert(row, added);
                QCOMPARE(list.rewrites() == rewrites, row == plain.size());
                plain.insert(row, added[1]);
                plain.insert(row, added[0]);
                break;
            }
            case 1:
                if (row < plain.size()) {
                    const Spot spot = newSpot();
                    list.replace(row, spot);
                    plain[row] = spot;
                    QVERIFY(!list.replace(row, spot));
                }
                break;
            default: {
                const int count = qMin(2, plain.size() - row);
                list.remove(row, count);
                plain.remove(row, count);
                break;
            }
            }
            SpotList fresh;
            fresh.assign(plain);
            QCOMPARE(textOf(list), textOf(fresh));
        }
    }

    void nearestIsWithinItsOwnSigma()
    {
        SpotList list;
        const float nan = float(qQNaN());
        list.assign({{0, 0, 1, 5}, {6, 0, 1, 0.5F}, {nan, 0, 1, 1}, {0, 0, 2, 5}});
        QCOMPARE(list.nearest(QPointF(1, 0)), 3);
        QCOMPARE(list.nearest(QPointF(4.9, 0)), 3);
        QCOMPARE(list.nearest(QPointF(5.6, 0)), 1);
        QCOMPARE(list.nearest(QPointF(5.4, 0)), -1);
    }

    //! A rubber band selects the spots whose square has its centre there, also at the pixel of an edge.
    void aRectangleHoldsTheSpotsWithTheirCentreInIt()
    {
        QRandomGenerator random(5);
        QVector<Spot> spots;
        for (int i = 0; i < 2000; ++i)
            spots << Spot{float(random.bounded(100.0)),
                          float(random.bounded(100.0)),
                          1,
                          float(random.bounded(3))};
        SpotList list;
        list.assign(spots);
        const SpotHitTest places(list, QRectF(-5, -5, 110, 110), QRect(7, 3, 330, 330));
        for (const int side : {4, 5, 9, 25, 60}) {
            const QRect rect(50 + side, 70, side * 4, side * 3);
            QVector<int> expected;
            for (int row = 0; row < list.size(); ++row) {
                if (rect.contains(places.spotRect(row, 2.6).center()))
                    expected << row;
            }
            QVERIFY(!expected.isEmpty());
            QCOMPARE(places.rowsIn(rect), expected);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotList)
#include "tst_SpotList.moc"
