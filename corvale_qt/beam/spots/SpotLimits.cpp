// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotLimits_p.h"

#include <QtNumeric>

#include <algorithm>

namespace Corvale_Qt {

namespace {

//! The usual number of rows in a block, about the number of blocks in a map of 16 000 spots.
constexpr int blockSize = 128;

} // namespace

bool isDrawable(const SpotMapView::MapSpot &spot)
{
    return qIsFinite(spot.x) && qIsFinite(spot.y) && qIsFinite(spot.dose) && qIsFinite(spot.sigma)
        && spot.sigma > 0.0F;
}

SpotLimits SpotLimits::of(const SpotMapView::MapSpot &spot)
{
    if (!isDrawable(spot))
        return SpotLimits();
    const double reach = spotReach * double(spot.sigma);
    const float dose = std::max(spot.dose, 0.0F);
    return {spot.x - reach, spot.x + reach, spot.y - reach, spot.y + reach, dose, 1};
}

SpotLimits SpotLimits::of(const QVector<SpotMapView::MapSpot> &spots, int first, int count)
{
    SpotLimits limits;
    for (int row = first; row < first + count; ++row)
        limits.add(of(spots.at(row)));
    return limits;
}

QRectF SpotLimits::rect() const
{
    return drawable > 0 ? QRectF(QPointF(left, bottom), QPointF(right, top)) : QRectF();
}

void SpotLimits::add(const SpotLimits &other)
{
    if (other.drawable == 0)
        return;
    if (drawable == 0) {
        *this = other;
        return;
    }
    left = std::min(left, other.left);
    right = std::max(right, other.right);
    bottom = std::min(bottom, other.bottom);
    top = std::max(top, other.top);
    dose = std::max(dose, other.dose);
    drawable += other.drawable;
}

void SpotBlocks::clear()
{
    m_blocks.clear();
    m_limits = SpotLimits();
}

void SpotBlocks::append(const SpotMapView::MapSpot &spot)
{
    if (m_blocks.isEmpty() || m_blocks.constLast().rows >= blockSize)
        m_blocks.append(Block());
    const SpotLimits own = SpotLimits::of(spot);
    ++m_blocks.last().rows;
    m_blocks.last().limits.add(own);
    m_limits.add(own);
}

void SpotBlocks::inserted(const Spots &spots, int first, int count)
{
    const Place place = placeOf(first);
    const int blocks = m_blocks.size();
    m_blocks[place.block].rows += count;
    split(place.block);
    rescan(spots, place, 1 + m_blocks.size() - blocks);
}

void SpotBlocks::changed(const Spots &spots, int row)
{
    rescan(spots, placeOf(row), 1);
}

void SpotBlocks::removed(const Spots &spots, int first, int count)
{
    const Place place = placeOf(first);
    int rowInBlock = first - place.firstRow;
    int block = place.block;
    for (int left = count; left > 0; ++block) {
        const int taken = std::min(left, m_blocks[block].rows - rowInBlock);
        m_blocks[block].rows -= taken;
        left -= taken;
        rowInBlock = 0;
    }
    const auto isEmpty = [](const Block &candidate) {
        return candidate.rows == 0;
    };
    const auto begin = m_blocks.begin() + place.block;
    const auto end = m_blocks.begin() + block;
    const auto kept = std::remove_if(begin, end, isEmpty);
    const int touched = int(kept - begin);
    m_blocks.erase(kept, end);
    rescan(spots, place, touched);
}

SpotBlocks::Place SpotBlocks::placeOf(int row) const
{
    Place place{0, 0};
    while (row >= place.firstRow + m_blocks[place.block].rows) {
        place.firstRow += m_blocks[place.block].rows;
        ++place.block;
    }
    return place;
}

void SpotBlocks::split(int block)
{
    const int rows = m_blocks[block].rows;
    if (rows <= 2 * blockSize)
        return;
    const int pieces = rows / blockSize;
    m_blocks.insert(block, pieces - 1, Block());
    for (int piece = 0; piece < pieces; ++piece)
        m_blocks[block + piece].rows = blockSize;
    m_blocks[block].rows += rows % blockSize;
}

void SpotBlocks::rescan(const Spots &spots, Place from, int count)
{
    int row = from.firstRow;
    for (int block = from.block; block < from.block + count; ++block) {
        m_blocks[block].limits = SpotLimits::of(spots, row, m_blocks[block].rows);
        row += m_blocks[block].rows;
    }
    m_limits = SpotLimits();
    for (const Block &block : qAsConst(m_blocks))
        m_limits.add(block.limits);
}

} // namespace Corvale_Qt
