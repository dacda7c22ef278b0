// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/PixelCover_p.h"

#include <QColor>
#include <QImage>
#include <QPointF>

#include <unordered_map>
#include <vector>

class QPainter;

namespace Corvale_Qt {

/*! Draws rings around the selected spots of a map, of which there may be thousands. Rings of the same size are one picture, for
    each of a few places within a pixel. Rings that lie wholly below others are left out, which changes no pixel. */
class SelectionRings
{
public:
    //! \a painter must outlive this object. It draws on a canvas with \a pixelRatio device pixels to a pixel.
    SelectionRings(QPainter &painter, const QColor &color, double pixelRatio);

    //! Puts a ring over those before it; \a radius is in pixels, and a very small one is enlarged.
    void add(const QPointF &centre, double radius);
    //! Draws all rings that are not drawn yet. Call it after the last one.
    void draw();

private:
    struct Picture
    {
        QImage image;
        PixelMask visible;
        PixelMask opaque;
    };
    struct Ring
    {
        QPointF place; //!< of the top left corner of its picture, in device pixels
        const Picture *picture = nullptr;
    };

    Picture picture(const QPointF &centre, double radius, int side) const;
    //! Returns the rings that are not wholly hidden by later ones, the last one first.
    std::vector<Ring> visibleRings() const;

    QPainter &m_painter;
    const QColor m_color;
    const double m_pixelRatio;
    std::unordered_map<quint64, Picture> m_pictures; // whose pictures stay in their place
    std::vector<Ring> m_rings;
};

} // namespace Corvale_Qt
