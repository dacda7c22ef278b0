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
    rewritten();
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
    rewritten();
}

bool SpotList::replace(int row, const MapSpot &spot)
{
    if (bitsOf(m_spots.at(row)) == bitsOf(spot))
        return false;
    m_spots[row] = spot;
    m_blocks.changed(m_spots, row);
    rewritten();
    return true;
}

void SpotList::remove(int first, int count)
{
    if (count <= 0)
        return;
    m_spots.remove(first, count);
    m_blocks.removed(m_spots, first, count);
    rewritten();
}

QRectF SpotList::extent() const
{
    const SpotLimits &limits = m_blocks.limits();
    if (limits.drawable == 0)
        return QRectF();
    return QRectF(QPointF(limits.left, limits.bottom), QPointF(limits.right, limits.top));
}

int SpotList::nearest(const QPointF &point) const
{
    int found = -1;
    double smallest = std::numeric_limits<double>::infinity();
    for (int row = 0; row < m_spots.size(); ++row) {
        const MapSpot &spot = m_spots.at(row);
        const double distance = std::hypot(spot.x - point.x(), spot.y - point.y());
        if (isDrawable(spot) && distance <= spot.sigma && distance <= smallest) {
            found = row;
            smallest = distance;
        }
    }
    return found;
}

void SpotList::rewritten()
{
    ++m_version;
    ++m_rewrites;
}

} // namespace Corvale_Qt
