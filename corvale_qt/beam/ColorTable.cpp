// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/ColorTable_p.h"

#include <cmath>

namespace Corvale_Qt {

ColorTable::ColorTable(const QwtLinearColorMap &map, const QwtInterval &range)
    : m_map(map)
    , m_range(range)
    , m_width(range.width())
    , m_colours(intervals, toBeAsked)
{
    if (!(m_width > 0.0) || map.mode() != QwtLinearColorMap::ScaledColors)
        return; // ask always
    const QwtInterval unit(0.0, 1.0);
    QRgb before = map.rgb(unit, 0.0);
    for (int i = 0; i < intervals; ++i) {
        const QRgb after = map.rgb(unit, double(i + 1) / intervals);
        if (before == after)
            m_colours[i] = before;
        before = after;
    }
    // A component may turn at a stop, and the map may jump there, by rounding: a stop between two intervals spoils both.
    for (const double stop : map.colorStops()) {
        for (const double place : {std::ceil(stop * intervals) - 1.0, std::floor(stop * intervals)})
            m_colours[qBound(0, int(place), intervals - 1)] = toBeAsked;
    }
}

} // namespace Corvale_Qt
