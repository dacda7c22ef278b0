// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/ColorTable_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

ColorTable::Contents::Contents(const QwtLinearColorMap &map)
    : mode(map.mode())
    , stops(map.colorStops())
{
    for (const double stop : stops)
        colors.append(map.rgb(QwtInterval(0.0, 1.0), stop));
}

bool ColorTable::Contents::operator==(const Contents &other) const
{
    return mode == other.mode && stops == other.stops && colors == other.colors;
}

void ColorTable::setMap(const QwtLinearColorMap &map)
{
    const bool isKept = m_map != nullptr;
    m_map = &map;
    const Contents contents(map);
    if (isKept && contents == m_contents)
        return;
    m_contents = contents;
    m_opaque = std::all_of(contents.colors.begin(), contents.colors.end(), [](QRgb color) {
        return qAlpha(color) == 255;
    });
    fill();
}

void ColorTable::fill()
{
    m_colors.fill(kUnresolved, kPlaces);
    if (m_contents.mode != QwtLinearColorMap::ScaledColors)
        return; // the map is always asked
    const QwtInterval unit(0.0, 1.0);
    m_colors[kBelow] = m_map->rgb(unit, -1.0);
    m_colors[kAbove] = m_map->rgb(unit, 2.0);
    QRgb before = m_map->rgb(unit, 0.0);
    for (int i = 0; i < kIntervals; ++i) {
        const QRgb after = m_map->rgb(unit, double(i + 1) / kIntervals);
        if (before == after)
            m_colors[i] = before;
        before = after;
    }
    // A component may change direction at a stop, and rounding may make the map jump there. A stop on the border of
    // two intervals affects both.
    for (const double stop : m_contents.stops) {
        for (const double place :
             {std::ceil(stop * kIntervals) - 1.0, std::floor(stop * kIntervals)})
            m_colors[qBound(0, int(place), kIntervals - 1)] = kUnresolved;
    }
}

void ColorTable::lookUp(const QwtInterval &range,
                        const double *values,
                        int count,
                        QRgb *colors) const
{
    const double least = range.minValue();
    const double width = range.width();
    if (!(width > 0.0)) { // the map decides which colour that is
        std::transform(values, values + count, colors, [&](double value) {
            return m_map->rgb(range, value);
        });
        return;
    }
    const QRgb *const table = m_colors.constData();
    for (int i = 0; i < count; ++i) {
        // Divided as the map divides: multiplying by a reciprocal might give the next interval.
        const double place = (values[i] - least) / width * kIntervals;
        const QRgb color = table[indexOf(place)];
        colors[i] = color != kUnresolved ? color : m_map->rgb(range, values[i]);
    }
}

//! Returns the entry for a place in units of an interval.
int ColorTable::indexOf(double place)
{
    if (place >= 0.0)
        return place < kIntervals ? int(place) : kAbove;
    return place < 0.0 ? kBelow : kNotANumber;
}

} // namespace Corvale_Qt
