// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotDifferences.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace Corvale_Qt {

namespace {

/*! Finds the spot nearest to a place. The spots are sorted by x and cut into strips of about the square root of their number,
    and each strip is sorted by y. So a search reads few spots however they lie, even if all are crowded at one place and one
    is far away, which no grid of equal cells could do. */
class SpotStrips
{
public:
    static constexpr int none = -1;

    //! The \a spots must outlive this object.
    explicit SpotStrips(const QVector<ComparedSpot> &spots);

    /*! Returns the index of the spot nearest to \a place that is not further away than the root of \a squaredReach; of several
        at one distance, the first. */
    int nearest(const ComparedSpot &place, double squaredReach) const;
    //! Takes a spot out, so that it is not found any more. It must be in.
    void take(int index);

private:
    struct Strip
    {
        double left = 0;
        double right = 0;
        std::vector<int> spots; //!< rising in y; at the same y, rising in their index
    };
    //! The nearest spot so far.
    struct Best
    {
        int index = none;
        double squaredDistance = 0;
    };

    bool isBelow(int a, int b) const;
    void searchStrip(const Strip &strip, const ComparedSpot &place, Best &best) const;
    void consider(int index, const ComparedSpot &place, Best &best) const;

    const QVector<ComparedSpot> &m_spots;
    std::vector<Strip> m_strips; //!< from left to right
    std::vector<int> m_stripOf; //!< for each spot
};

//! Returns the square of the distance of two spots.
double squaredDistance(const ComparedSpot &a, const ComparedSpot &b);

double squaredDistance(const ComparedSpot &a, const ComparedSpot &b)
{
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

SpotStrips::SpotStrips(const QVector<ComparedSpot> &spots)
    : m_spots(spots)
    , m_stripOf(size_t(spots.size()))
{
    std::vector<int> byX(m_stripOf.size());
    std::iota(byX.begin(), byX.end(), 0);
    std::stable_sort(byX.begin(), byX.end(), [&spots](int a, int b) {
        return spots[a].x < spots[b].x;
    });
    const size_t length = size_t(std::ceil(std::sqrt(double(byX.size()))));
    for (size_t first = 0; first < byX.size(); first += length) {
        const size_t last = std::min(first + length, byX.size()) - 1;
        Strip strip;
        strip.left = spots[byX[first]].x;
        strip.right = spots[byX[last]].x;
        for (size_t i = first; i <= last; ++i) {
            strip.spots.push_back(byX[i]);
            m_stripOf[size_t(byX[i])] = int(m_strips.size());
        }
        std::sort(strip.spots.begin(), strip.spots.end(), [this](int a, int b) {
            return isBelow(a, b);
        });
        m_strips.push_back(std::move(strip));
    }
}

bool SpotStrips::isBelow(int a, int b) const
{
    return m_spots[a].y < m_spots[b].y || (m_spots[a].y == m_spots[b].y && a < b);
}

int SpotStrips::nearest(const ComparedSpot &place, double squaredReach) const
{
    Best best{none, squaredReach};
    const auto mayHold = [&](double distance) {
        return distance <= 0 || distance * distance <= best.squaredDistance;
    };
    const auto start =
        std::lower_bound(m_strips.begin(), m_strips.end(), place.x, [](const Strip &s, double x) {
            return s.right < x;
        });
    for (auto strip = start; strip != m_strips.end() && mayHold(strip->left - place.x); ++strip)
        searchStrip(*strip, place, best);
    for (auto strip = start; strip != m_strips.begin() && mayHold(place.x - (strip - 1)->right);) {
        --strip;
        searchStrip(*strip, place, best);
    }
    return best.index;
}

void SpotStrips::searchStrip(const Strip &strip, const ComparedSpot &place, Best &best) const
{
    const auto mayHold = [&](int index) {
        const double distance = m_spots[index].y - place.y;
        return distance * distance <= best.squaredDistance;
    };
    const auto &spots = strip.spots;
    const auto start =
        std::lower_bound(spots.begin(), spots.end(), place.y, [this](int index, double y) {
            return m_spots[index].y < y;
        });
    for (auto spot = start; spot != spots.end() && mayHold(*spot); ++spot) {
        consider(*spot, place, best);
        if (squaredDistance(m_spots[*spot], place) == 0)
            return; // others of this strip at the same place come later in the list
    }
    for (auto spot = start; spot != spots.begin() && mayHold(*(spot - 1));) {
        --spot;
        consider(*spot, place, best);
    }
}

void SpotStrips::consider(int index, const ComparedSpot &place, Best &best) const
{
    const double distance = squaredDistance(m_spots[index], place);
    const bool isFirst = best.index == none || index < best.index;
    if (distance < best.squaredDistance || (distance == best.squaredDistance && isFirst))
        best = {index, distance};
}

void SpotStrips::take(int index)
{
    std::vector<int> &spots = m_strips[size_t(m_stripOf[size_t(index)])].spots;
    spots.erase(std::lower_bound(spots.begin(), spots.end(), index, [this](int a, int b) {
        return isBelow(a, b);
    }));
}

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
