// SPDX-License-Identifier: LGPL-2.1-or-later
// The numbers of spot maps and position errors apart from their pictures.
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"
#include "corvale_qt/beam/spots/SpotMapView.h"
#include "tests/beam/spots/SpotTable.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! Prints the pairs as "target row-row", and the totals.
QString textOf(const SpotDifferences &all)
{
    if (!all.computed)
        return QStringLiteral("not computed");
    QStringList pairs;
    for (const SpotDifference &spot : all.spots) {
        const auto row = [](int number) {
            return number < 0 ? QStringLiteral("none") : QString::number(number);
        };
        pairs << QStringLiteral("%1-%2 %3")
                     .arg(row(spot.targetRow), row(spot.row))
                     .arg(spot.doseDifference);
    }
    return pairs.join(", ")
        + QStringLiteral("; matched %1, missing %2 of %3, extra %4 of %5")
              .arg(all.matched)
              .arg(all.missing)
              .arg(all.missingDose)
              .arg(all.extra)
              .arg(all.extraDose);
}

//! A map and its target, without a window.
struct Maps
{
    Maps(const QString &actualSpots, const QString &plannedSpots)
        : actual(actualSpots)
        , planned(plannedSpots)
    {
        map.setModel(&actual);
        target.setModel(&planned);
        map.setDiffTarget(&target);
    }

    SpotTable actual;
    SpotTable planned;
    SpotMapView target;
    SpotMapView map;
};

QVector<ComparedSpot> randomSpots(QRandomGenerator &random, int count, double side, double sigma)
{
    QVector<ComparedSpot> spots;
    for (int row = 0; row < count; ++row)
        spots.append({row, random.bounded(side), random.bounded(side), random.bounded(5.0), sigma});
    return spots;
}

//! Returns the nearest free spot by asking every spot.
int nearestOf(const QVector<ComparedSpot> &spots, const QVector<bool> &taken,
              const ComparedSpot &place, double reach)
{
    int found = -1;
    double smallest = reach;
    for (int i = 0; i < spots.size(); ++i) {
        const double distance = std::hypot(spots[i].x - place.x, spots[i].y - place.y);
        if (!taken[i] && distance <= reach && (found < 0 || distance < smallest)) {
            found = i;
            smallest = distance;
        }
    }
    return found;
}

//! Returns the row of the map for each target, as the documentation states the rule.
QVector<int> bruteForceMatches(const QVector<ComparedSpot> &map,
                               const QVector<ComparedSpot> &target)
{
    QVector<bool> taken(map.size(), false);
    const QVector<bool> noTarget(target.size(), false);
    QVector<int> matches(target.size(), -1);
    QVector<bool> pairsTaken(taken);
    for (int i = 0; i < target.size(); ++i) {
        const int found = nearestOf(map, taken, target[i], target[i].sigma);
        if (found >= 0 && nearestOf(target, noTarget, map[found], 1e9) == i) {
            matches[i] = found;
            pairsTaken[found] = true;
        }
    }
    for (int i = 0; i < target.size(); ++i) {
        if (matches[i] >= 0)
            continue;
        matches[i] = nearestOf(map, pairsTaken, target[i], target[i].sigma);
        if (matches[i] >= 0)
            pairsTaken[matches[i]] = true;
    }
    return matches;
}

QList<QStandardItem *> errorRow(double x, double y)
{
    QList<QStandardItem *> items;
    for (const double value : {0.0, 120.0, 1.0, x, y, 0.0, 0.0}) {
        items << new QStandardItem;
        items.last()->setData(value, Qt::UserRole);
    }
    return items;
}

} // namespace

class tst_SpotResults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spotsBelongTogether_data()
    {
        tableFrom(R"(
            | actual | planned | text
            same places, other order | 10 0 5 2; 0 0 3 2 | 0 0 4 2; 10 0 5 2
                | 0-1 -1, 1-0 0; matched 2, missing 0 of 0, extra 0 of 0
            one missing, one extra | 0 0 3 2; 50 0 7 2 | 0 0 3 2; 10 0 5 2
                | 0-0 0, 1-none -5, none-1 7; matched 1, missing 1 of 5, extra 1 of 7
            at exactly one sigma of the target | 2 0 3 9; 13 0 1 9 | 0 0 3 2; 10 0 1 2
                | 0-0 0, 1-none -1, none-1 1; matched 1, missing 1 of 1, extra 1 of 1
            an extra spot does not take the partner of another | 1.5 0 9 2; 0 0 3 2 | 0 0 3 2
                | 0-1 0, none-0 9; matched 1, missing 0 of 0, extra 1 of 9
            the second nearest, if the nearest is taken | 0 0 3 2; 1.4 0 4 2 | 0 0 3 2; 0.6 0 3 2
                | 0-0 0, 1-1 1; matched 2, missing 0 of 0, extra 0 of 0
            painted three times at one place, planned twice | 0 0 1 2; 0 0 2 2; 0 0 3 2 | 0 0 5 2; 0 0 5 2
                | 0-0 -4, 1-1 -3, none-2 3; matched 2, missing 0 of 0, extra 1 of 3
            spots without a number are not compared | 0 0 nan 2; 5 0 1 0 | 5 0 1 2; nan 0 1 2
                | 0-none -1; matched 0, missing 1 of 1, extra 0 of 0
            both empty |  |  | ; matched 0, missing 0 of 0, extra 0 of 0
        )");
    }
    void spotsBelongTogether()
    {
        const Maps maps(cell("actual"), cell("planned"));
        QTEST(textOf(maps.map.differences()), "text");
        QCOMPARE(textOf(maps.target.differences()), QString("not computed"));
    }

    void offsetsAndTotals()
    {
        const Maps maps("1 2 4 3; 20 0 6 3; nan 0 1 1", "0 0 5 3; 40 0 2 3; 60 0 1 0; 70 0 1 0");
        const SpotDifferences all = maps.map.differences();
        QCOMPARE(all.spots.size(), 3);
        const SpotDifference &pair = all.spots[0];
        QCOMPARE(QPointF(pair.x, pair.y), QPointF(1, 2));
        QCOMPARE(QPointF(pair.xOffset, pair.yOffset), QPointF(1, 2));
        QVERIFY(all.spots[1].isMissing() && !all.spots[1].isExtra());
        QVERIFY(std::isnan(all.spots[1].xOffset));
        QCOMPARE(all.spots[1].x, 40.0);
        QCOMPARE(all.dose, 10.0);
        QCOMPARE(all.targetDose, 7.0);
        QCOMPARE(all.largestDoseDifference, -1.0);
        QCOMPARE(all.notComparable, 1);
        QCOMPARE(all.targetNotComparable, 2);
    }

    void matchesEqualThoseByBruteForce()
    {
        QRandomGenerator random(11);
        for (const auto &[count, side, sigma] :
             {std::tuple(60, 40.0, 3.0), std::tuple(200, 20.0, 2.0), std::tuple(40, 4.0, 50.0),
              std::tuple(30, 1000.0, 400.0), std::tuple(90, 6.0, 1.5)}) {
            QVector<ComparedSpot> map = randomSpots(random, count, side, sigma);
            QVector<ComparedSpot> target = randomSpots(random, count + 9, side, sigma);
            if (count == 90) { // many at the same places, and one far away
                for (QVector<ComparedSpot> *spots : {&map, &target}) {
                    for (ComparedSpot &spot : *spots) {
                        spot.x = std::floor(spot.x);
                        spot.y = std::floor(spot.y);
                    }
                    spots->last().x = 1e6;
                }
            }
            const SpotDifferences all = compareSpots(map, target);
            QVector<int> matches;
            for (int i = 0; i < target.size(); ++i)
                matches << all.spots[i].row;
            QCOMPARE(matches, bruteForceMatches(map, target));
            QCOMPARE(all.matched + all.missing, target.size());
            QCOMPARE(all.matched + all.extra, map.size());
        }
    }

    void changesOfBothMapsAreAnnounced()
    {
        Maps maps("0 0 3 2", "0 0 4 2");
        QSignalSpy spy(&maps.map, &SpotMapView::differencesChanged);
        QCOMPARE(textOf(maps.map.differences()),
                 QString("0-0 -1; matched 1, missing 0 of 0, extra 0 of 0"));
        maps.actual.append("9 0 5 2");
        maps.actual.setDose(0, 4);
        QCOMPARE(spy.size(), 0);
        // The numbers are up to date even before the announcement.
        QCOMPARE(textOf(maps.map.differences()),
                 QString("0-0 0, none-1 5; matched 1, missing 0 of 0, extra 1 of 5"));
        QTRY_COMPARE(spy.size(), 1);
        maps.planned.append("9 0 6 2");
        QTRY_COMPARE(spy.size(), 2);
        QCOMPARE(maps.map.differences().largestDoseDifference, -1.0);
        maps.map.setDiffTarget(nullptr);
        QTRY_COMPARE(spy.size(), 3);
        QCOMPARE(textOf(maps.map.differences()), QString("not computed"));
        {
            SpotMapView shortLived;
            shortLived.setModel(&maps.planned);
            maps.map.setDiffTarget(&shortLived);
            QCOMPARE(maps.map.differences().matched, 2);
        }
        QTRY_COMPARE(spy.size(), 4); // once for the new target and its deletion
        QCOMPARE(textOf(maps.map.differences()), QString("not computed"));
    }

    void mapMayBeDeletedByASlot()
    {
        SpotTable actual;
        SpotMapView target;
        QPointer<SpotMapView> map = new SpotMapView;
        map->setModel(&actual);
        map->setDiffTarget(&target);
        connect(map, &SpotMapView::differencesChanged, this, [&map] { delete map; });
        actual.append("0 0 1 1");
        QTRY_VERIFY(!map);
    }

    void numbersOfPositionErrors()
    {
        // By hand: X has the mean 1 and the squared distances 4 + 1 + 9, Y the mean -1 and 1 + 1 + 0.
        const double x[] = {-1, 0, 4, 1};
        const double y[] = {-2, 0, -1, qQNaN()};
        PositionErrorStatistics numbers = positionErrorStatistics(x, y, 4, 2, 2);
        QCOMPARE(numbers.spots, 4);
        QCOMPARE(numbers.incomplete, 1);
        QCOMPARE(numbers.meanX, 1.0);
        QCOMPARE(numbers.sigmaX, std::sqrt(14.0 / 3));
        QCOMPARE(numbers.meanY, -1.0);
        QCOMPARE(numbers.sigmaY, 1.0);
        QCOMPARE(numbers.worst, std::sqrt(17.0));
        QCOMPARE(numbers.worstSpot, 2);
        QCOMPARE(numbers.outside, 1); // an error as large as the tolerance is inside
        QCOMPARE(positionErrorStatistics(x, y, 4).outside, -1);

        numbers = positionErrorStatistics(x, y, 1);
        QVERIFY(std::isnan(numbers.sigmaX) && numbers.meanX == -1.0);
        QVERIFY(!positionErrorStatistics(nullptr, nullptr, 0).isComputed());
        const double unknown[] = {qQNaN(), qInf()};
        numbers = positionErrorStatistics(unknown, unknown, 2, 1, 1);
        QVERIFY(std::isnan(numbers.meanX) && std::isnan(numbers.worst));
        QCOMPARE(QPoint(numbers.incomplete, numbers.outside), QPoint(2, 0));
        QCOMPARE(numbers.worstSpot, -1);
    }

    //! Errors far from 0 and close together need two passes: the sum of squares would cancel.
    void spreadsFarFromZero()
    {
        QVector<double> x;
        for (int i = 0; i < 1000; ++i)
            x << 1e9 + (i % 2 ? 0.5 : -0.5);
        const auto numbers = positionErrorStatistics(x.constData(), x.constData(), x.size());
        QVERIFY(std::abs(numbers.sigmaX - 0.5 * std::sqrt(1000.0 / 999)) < 1e-6);
    }

    void errorsFollowTheModel()
    {
        QStandardItemModel table;
        RVXPositionErrorPlot plot;
        QSignalSpy spy(&plot, &RVXPositionErrorPlot::statisticsChanged);
        QVERIFY(!plot.statistics().isComputed());
        plot.setModel(&table);
        table.appendRow(errorRow(1, 0));
        table.appendRow(errorRow(3, -4));
        QCOMPARE(plot.statistics().meanX, 2.0);
        QCOMPARE(plot.statistics().outside, -1);
        QTRY_COMPARE(spy.size(), 1);
        plot.setTolerance(2, 2);
        QCOMPARE(plot.statistics().outside, 1);
        QTRY_COMPARE(spy.size(), 2);
        table.item(1, 4)->setData(-1.0, Qt::UserRole);
        QCOMPARE(plot.statistics().worst, std::sqrt(10.0));
        table.removeRow(1);
        QCOMPARE(plot.statistics().spots, 1);
        QTRY_COMPARE(spy.size(), 3);
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotResults)
#include "tst_SpotResults.moc"
