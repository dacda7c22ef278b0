// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_color_map.h>
#include <qwt_interval.h>

#include <QRgb>
#include <QVector>

namespace Corvale_Qt {

/*! A table that returns the colours of a linear colour map faster than the map does, for whole pictures.

    Each colour component is monotonic between two stops. So if both ends of a small interval have the same colour,
    the whole interval has it, and the table stores that colour. For other intervals the table asks the map. */
class ColorTable
{
public:
    //! Uses the colours of \a map from now on. The table is rebuilt only if they differ from the last map's.
    void setMap(const QwtLinearColorMap &map);

    //! Returns whether the colour of every number is opaque. A NaN is transparent whatever the map.
    bool isOpaque() const { return m_opaque; }

    /*! Writes the colours of \a count values to \a colors. The map spans \a range. The map given to setMap() must
        still exist. */
    void lookUp(const QwtInterval &range, const double *values, int count, QRgb *colors) const;

private:
    //! The properties that decide a map's colours.
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
    static int indexOf(double place);

    // Small enough to stay in the processor's cache; about one look-up in forty still asks the map.
    static constexpr int kIntervals = 1 << 16;
    // Entries behind those of the intervals. In a frame of a camera, half of the cells without beam are below 0.
    enum {
        kBelow = kIntervals,
        kAbove,
        kNotANumber,
        kPlaces
    };
    // Marks an interval whose colour the map is asked for. So is a colour that equals it, which is transparent.
    static constexpr QRgb kUnresolved = 0;

    const QwtLinearColorMap *m_map = nullptr;
    Contents m_contents;
    bool m_opaque = false;
    QVector<QRgb> m_colors; // by indexOf()
};

} // namespace Corvale_Qt
