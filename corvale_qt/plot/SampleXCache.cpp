// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SeriesSource_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"
#include "corvale_qt/plot/RowSearch_p.h"
#include "corvale_qt/plot/SampleXCache_p.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace Corvale_Qt {

bool SampleXCache::Key::matches(const Key &other) const
{
    return version != 0 && version == other.version && memory == other.memory
        && count == other.count && std::equal(std::begin(scale), std::end(scale), other.scale)
        && std::equal(std::begin(paint), std::end(paint), other.paint);
}

SampleXCache::Key SampleXCache::keyOf(const SeriesSpans &samples, const QwtScaleMap &map)
{
    const RingSpans &x = samples.storedX();
    return {map.transformation() ? 0 : samples.xVersion(),
            x.size[0] > 0 ? x.piece[0] : x.piece[1],
            x.count(),
            {map.s1(), map.s2()},
            {map.p1(), map.p2()}};
}

void SampleXCache::follow(const Key &key)
{
    if (key.matches(m_key))
        return;
    m_key = key;
    m_hasPositions = false;
    m_hasColumns = false;
}

const SampleXCache::Positions &
SampleXCache::positions(const SeriesSpans &samples, const QwtScaleMap &map, bool whole)
{
    follow(keyOf(samples, map));
    if (m_hasPositions && whole == m_positions.areWhole)
        return m_positions;
    m_hasPositions = true;
    m_positions.areWhole = whole;
    m_positions.areFinite = true;
    m_positions.x.resize(samples.count());
    for (int i = 0; i < samples.count(); ++i) {
        const double value = samples.x(i);
        double position = std::numeric_limits<double>::quiet_NaN();
        if (std::isfinite(value))
            position = whole ? pixelOf(map, value) : map.transform(value);
        m_positions.areFinite = m_positions.areFinite && std::isfinite(position);
        m_positions.x[i] = position;
    }
    return m_positions;
}

const SampleXCache::Columns &
SampleXCache::columns(const SeriesSpans &samples, const QwtScaleMap &map, int left, int right)
{
    follow(keyOf(samples, map));
    if (m_hasColumns && left == m_columns.left && right == m_columns.right)
        return m_columns;
    m_hasColumns = true;
    m_columns.left = left;
    m_columns.right = right;
    m_columns.edges.resize(0);

    const bool rightwards = (map.p2() >= map.p1()) == (map.s2() >= map.s1());
    const auto column = [&](int row) {
        return pixelOf(map, samples.x(row));
    };
    const auto isInside = [&](int row) {
        return rightwards ? column(row) >= left : column(row) <= right;
    };
    const auto isBeyond = [&](int row) {
        return rightwards ? column(row) > right : column(row) < left;
    };
    const int inside = firstPast(0, samples.count(), isInside);
    const int beyond = firstPast(inside, samples.count(), isBeyond);
    m_columns.end = std::min(beyond + 1, samples.count());

    int rows = 0;
    for (int row = std::max(inside - 1, 0); row < m_columns.end;) {
        const int here = column(row);
        m_columns.edges.append({here, row});
        const int next = firstPastNear(row + 1, m_columns.end, rows, [&](int r) {
            return column(r) != here;
        });
        rows = next - row;
        row = next;
    }
    return m_columns;
}

} // namespace Corvale_Qt
