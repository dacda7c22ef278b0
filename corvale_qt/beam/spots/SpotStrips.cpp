// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotStrips_p.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Corvale_Qt {

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

} // namespace Corvale_Qt
