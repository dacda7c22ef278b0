// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// +------------------------------------------------------------------------------------+
// | This file is not part of the interface: it may change, or go, without notice.      |
// +------------------------------------------------------------------------------------+

#include <qwt_color_map.h>
#include <qwt_interval.h>

#include <QRgb>
#include <QVector>

namespace Corvale_Qt {

/*! A colour map over a range of values, for a picture's worth of look-ups: the same colours as the map's own, faster.

    Between two stops each component rises or falls, so where both ends of a small interval have the same colour, all of it
    has. The intervals with that property are remembered; for the others, the map is asked. */
class ColorTable
{
public:
    //! \a map must outlive this.
    ColorTable(const QwtLinearColorMap &map, const QwtInterval &range);

    QRgb rgb(double value) const
    {
        // The map's own division, to the last bit: by a reciprocal a value may land beside its interval.
        const double place = (value - m_range.minValue()) / m_width * intervals;
        if (place >= 0.0 && place < intervals) { // not so for a NaN
            const QRgb colour = m_colours[int(place)];
            if (colour != toBeAsked)
                return colour;
        }
        return m_map.rgb(m_range, value);
    }

private:
    // Small enough for a near cache, large enough that one look-up in ten has to ask.
    static constexpr int intervals = 1 << 14;
    // A colour that is not seen at all.
    static constexpr QRgb toBeAsked = 0;

    const QwtLinearColorMap &m_map;
    const QwtInterval m_range;
    double m_width;
    QVector<QRgb> m_colours;
};

} // namespace Corvale_Qt
