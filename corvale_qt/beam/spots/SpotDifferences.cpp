// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotDifferences.h"

#include "corvale_qt/beam/spots/SpotStrips_p.h"

#include <cmath>
#include <vector>

namespace Corvale_Qt {

namespace {

using Spots = QVector<ComparedSpot>;

constexpr int none = SpotStrips::none;

//! Returns for each spot of the target the index of the spot of the map that belongs to it, or none.
std::vector<int> matches(const Spots &map, const Spots &target)
{
    SpotStrips freeSpots(map);
    const SpotStrips targets(target);
    std::vector<int> matched(size_t(target.size()), none);
    const auto match = [&](int i, int found) {
        matched[size_t(i)] = found;
        freeSpots.take(found);
    };
    const auto nearestSpot = [&](const ComparedSpot &of) {
        return freeSpots.nearest(of, of.sigma * of.sigma);
    };
    // No spot is taken while the pairs are found, so they do not depend on the order.
    std::vector<int> nearest;
    for (const ComparedSpot &spot : target)
        nearest.push_back(nearestSpot(spot));
    // A spot is the nearest of one target only, so it is taken once.
    for (int i = 0; i < target.size(); ++i) {
        const int found = nearest[size_t(i)];
        if (found != none
            && targets.nearest(map[found], squaredDistance(map[found], target[i])) == i)
            match(i, found);
    }
    for (int i = 0; i < target.size(); ++i) {
        const int found = matched[size_t(i)] == none ? nearestSpot(target[i]) : none;
        if (found != none)
            match(i, found);
    }
    return matched;
}

SpotDifference pairOf(const ComparedSpot &spot, const ComparedSpot &target)
{
    return {spot.row,
            target.row,
            spot.x,
            spot.y,
            spot.x - target.x,
            spot.y - target.y,
            spot.dose,
            target.dose,
            spot.dose - target.dose};
}

SpotDifference missing(const ComparedSpot &target)
{
    SpotDifference difference;
    difference.targetRow = target.row;
    difference.x = target.x;
    difference.y = target.y;
    difference.targetDose = target.dose;
    difference.doseDifference = -target.dose;
    return difference;
}

SpotDifference extra(const ComparedSpot &spot)
{
    SpotDifference difference;
    difference.row = spot.row;
    difference.x = spot.x;
    difference.y = spot.y;
    difference.dose = spot.dose;
    difference.doseDifference = spot.dose;
    return difference;
}

void addUp(SpotDifferences &all)
{
    for (const SpotDifference &spot : qAsConst(all.spots)) {
        all.dose += spot.dose;
        all.targetDose += spot.targetDose;
        if (spot.isMissing()) {
            ++all.missing;
            all.missingDose += spot.targetDose;
        } else if (spot.isExtra()) {
            ++all.extra;
            all.extraDose += spot.dose;
        } else {
            ++all.matched;
            if (std::abs(spot.doseDifference) > std::abs(all.largestDoseDifference))
                all.largestDoseDifference = spot.doseDifference;
        }
    }
}

} // namespace

SpotDifferences compareSpots(const QVector<ComparedSpot> &map, const QVector<ComparedSpot> &target)
{
    return compareSpots(map, target, matches(map, target));
}

SpotDifferences compareSpots(const QVector<ComparedSpot> &map,
                             const QVector<ComparedSpot> &target,
                             const std::vector<int> &matched)
{
    std::vector<bool> isMatched(size_t(map.size()));
    SpotDifferences all;
    all.computed = true;
    all.spots.reserve(target.size());
    for (int i = 0; i < target.size(); ++i) {
        const int found = matched[size_t(i)];
        all.spots.append(found == none ? missing(target[i]) : pairOf(map[found], target[i]));
        if (found != none)
            isMatched[size_t(found)] = true;
    }
    for (int i = 0; i < map.size(); ++i) {
        if (!isMatched[size_t(i)])
            all.spots.append(extra(map[i]));
    }
    addUp(all);
    return all;
}

} // namespace Corvale_Qt
