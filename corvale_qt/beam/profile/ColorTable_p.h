// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_color_map.h>
#include <qwt_interval.h>

#include <QRgb>
#include <QVector>

namespace Corvale_Qt {

/*! A colour map for pictures' worth of look-ups: the same colours as the map's own, faster.

    Between two stops each component rises or falls, so where both ends of a small interval have the same colour, all of it
    has. The intervals with that property are remembered; for the others, the map is asked. */
class ColorTable
{
public:
    //! The colours of \a map from now on. Those of the last map are kept where the two are the same.
    void setMap(const QwtLinearColorMap &map);

    //! Whether every number has a colour that hides what lies below; what is not a number has none.
    bool isOpaque() const { return m_opaque; }

    /*! The colours of \a count values, where the map's ends stand for those of \a range. The map that was given
        last must still be there. */
    void lookUp(const QwtInterval &range, const double *values, int count, QRgb *colors) const;

private:
    //! All that makes a map.
    struct Contents
    {
        QwtLinearColorMap::Mode mode = QwtLinearColorMap::ScaledColors;
        QVector<double> stops;
        QVector<QRgb> colors;

        explicit Contents(const QwtLinearColorMap &map);
        Contents() = default;
        bool operator==(const Contents &other) const;
    };

    void fill();

    // Small enough for a near cache, large enough that one look-up in forty has to ask.
    static constexpr int kIntervals = 1 << 16;
    // A colour that is not seen at all.
    static constexpr QRgb kUnresolved = 0;

    const QwtLinearColorMap *m_map = nullptr;
    Contents m_contents;
    bool m_opaque = false;
    // One more than there are intervals, for what lies in none of them.
    QVector<QRgb> m_colors;
};

} // namespace Corvale_Qt
