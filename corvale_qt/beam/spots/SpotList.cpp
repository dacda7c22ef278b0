// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotList_p.h"

#include <QtNumeric>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>

namespace Corvale_Qt {

namespace {

//! More changes between two paints are a new picture.
constexpr std::size_t mostRewritesKept = 64;

using Bits = std::array<quint32, 4>;

//! Returns the bits of a spot. Unlike a NaN, they are equal to themselves.
Bits bitsOf(const SpotMapView::MapSpot &spot)
{
    static_assert(sizeof(Bits) == sizeof spot, "there is no padding to compare");
    Bits bits{};
    std::memcpy(bits.data(), &spot, sizeof spot);
    return bits;
}

} // namespace

void SpotList::assign(const QVector<MapSpot> &spots)
{
    m_spots = spots;
    m_blocks.clear();
    for (const MapSpot &spot : spots)
        m_blocks.append(spot);
    ++m_version;
    ++m_rewrites;
    m_touched.clear();
}

void SpotList::insert(int row, const QVector<MapSpot> &spots)
{
    if (spots.isEmpty())
        return;
    if (row == m_spots.size()) {
        m_spots += spots;
        for (const MapSpot &spot : spots)
            m_blocks.append(spot);
        ++m_version;
        return;
    }
    m_spots.insert(row, spots.size(), MapSpot());
    std::copy(spots.cbegin(), spots.cend(), m_spots.begin() + row);
    m_blocks.inserted(m_spots, row, spots.size());
    rewritten(SpotLimits::of(m_spots, row, spots.size()));
}

bool SpotList::replace(int row, const MapSpot &spot)
{
    if (bitsOf(m_spots.at(row)) == bitsOf(spot))
        return false;
    SpotLimits touched = SpotLimits::of(m_spots.at(row));
    touched.add(SpotLimits::of(spot));
    m_spots[row] = spot;
    m_blocks.changed(m_spots, row);
    rewritten(touched);
    return true;
}

void SpotList::remove(int first, int count)
{
    if (count <= 0)
        return;
    const SpotLimits touched = SpotLimits::of(m_spots, first, count);
    m_spots.remove(first, count);
    m_blocks.removed(m_spots, first, count);
    rewritten(touched);
}

QRectF SpotList::extent() const
{
    return m_blocks.limits().rect();
}

std::optional<QRectF> SpotList::changedSince(quint64 before) const
{
    const quint64 changes = m_rewrites - before;
    if (changes > m_touched.size())
        return {};
    SpotLimits all;
    for (auto touched = m_touched.end() - std::ptrdiff_t(changes); touched != m_touched.end();
         ++touched)
        all.add(*touched);
    return all.rect();
}

int SpotList::nearest(const QPointF &point) const
{
    int found = -1;
    double smallest = std::numeric_limits<double>::infinity();
    for (int row = 0; row < m_spots.size(); ++row) {
        const MapSpot &spot = m_spots.at(row);
        const double x = spot.x - point.x(), y = spot.y - point.y();
        // Nearly all spots are too far away, and cost no root.
        if (!(std::abs(x) <= spot.sigma && std::abs(y) <= spot.sigma))
            continue;
        const double distance = std::hypot(x, y);
        if (isDrawable(spot) && distance <= spot.sigma && distance <= smallest) {
            found = row;
            smallest = distance;
        }
    }
    return found;
}

void SpotList::rewritten(const SpotLimits &touched)
{
    ++m_version;
    ++m_rewrites;
    m_touched.push_back(touched);
    if (m_touched.size() > mostRewritesKept)
        m_touched.pop_front();
}

} // namespace Corvale_Qt
