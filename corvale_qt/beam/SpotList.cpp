// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/SpotGeometry_p.h"
#include "corvale_qt/beam/SpotList_p.h"

#include <QtNumeric>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace Corvale_Qt {

namespace {

//! Bit for bit, so that a NaN equals itself and is no change for ever.
bool same(const SpotMapView::MapSpot &a, const SpotMapView::MapSpot &b)
{
    static_assert(sizeof(SpotMapView::MapSpot) == 4 * sizeof(float), "no padding to compare");
    return std::memcmp(&a, &b, sizeof a) == 0;
}

double reachOf(const SpotMapView::MapSpot &spot)
{
    return spotReach * double(spot.sigma);
}

} // namespace

bool isDrawable(const SpotMapView::MapSpot &spot)
{
    return qIsFinite(spot.x) && qIsFinite(spot.y) && qIsFinite(spot.dose) && qIsFinite(spot.sigma)
        && spot.sigma > 0.0F;
}

void SpotList::Limits::add(const MapSpot &spot)
{
    if (!isDrawable(spot))
        return;
    const double reach = reachOf(spot);
    if (!any) {
        *this = {spot.x - reach, spot.x + reach, spot.y - reach, spot.y + reach, 0.0F, true};
    } else {
        left = std::min(left, spot.x - reach);
        right = std::max(right, spot.x + reach);
        bottom = std::min(bottom, spot.y - reach);
        top = std::max(top, spot.y + reach);
    }
    dose = std::max(dose, spot.dose);
}

bool SpotList::Limits::restOn(const MapSpot &spot) const
{
    if (!isDrawable(spot))
        return false;
    const double reach = reachOf(spot);
    return spot.dose >= dose || spot.x - reach <= left || spot.x + reach >= right
        || spot.y - reach <= bottom || spot.y + reach >= top;
}

void SpotList::assign(const QVector<MapSpot> &spots)
{
    m_spots = spots;
    findLimits();
    rewritten();
}

void SpotList::insert(int row, const QVector<MapSpot> &spots)
{
    if (spots.isEmpty())
        return;
    const bool appended = row == m_spots.size();
    m_spots.insert(row, spots.size(), MapSpot());
    std::copy(spots.cbegin(), spots.cend(), m_spots.begin() + row);
    for (const MapSpot &spot : spots)
        m_limits.add(spot);
    ++m_version;
    if (!appended)
        ++m_rewrites;
}

bool SpotList::replace(int row, const MapSpot &spot)
{
    const MapSpot old = m_spots.at(row);
    if (same(old, spot))
        return false;
    m_spots[row] = spot;
    if (m_limits.restOn(old))
        findLimits();
    else
        m_limits.add(spot);
    rewritten();
    return true;
}

void SpotList::remove(int first, int count)
{
    if (count <= 0)
        return;
    const auto begin = m_spots.cbegin() + first;
    const bool narrower = std::any_of(begin, begin + count, [this](const MapSpot &spot) {
        return m_limits.restOn(spot);
    });
    m_spots.remove(first, count);
    if (narrower)
        findLimits();
    rewritten();
}

QRectF SpotList::extent() const
{
    if (!m_limits.any)
        return QRectF();
    return QRectF(QPointF(m_limits.left, m_limits.bottom), QPointF(m_limits.right, m_limits.top));
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

void SpotList::findLimits()
{
    m_limits = Limits();
    for (const MapSpot &spot : qAsConst(m_spots))
        m_limits.add(spot);
}

} // namespace Corvale_Qt
