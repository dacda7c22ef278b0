// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/PixelCover_p.h"

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRect>

#include <unordered_map>

class QPainter;

namespace Corvale_Qt {

//! A ring around a selected spot.
struct SelectionRing
{
    int row = 0; //!< of the spot
    int shape =
        0; //!< its size and its place within a pixel; 0 for a ring that is too large for a picture
    QRect pixels; //!< of its picture, in device pixels; empty if there is none
};

/*! The pictures of the rings around selected spots, of which there may be thousands. Rings of the same size are one picture, for each
    of a few places within a pixel. */
class RingPictures
{
public:
    struct Picture
    {
        QImage image;
        PixelMask visible;
        PixelMask opaque;
    };

    //! There are \a pixelRatio device pixels to a pixel.
    RingPictures(const QColor &color, double pixelRatio);

    //! Returns the ring of a spot; \a radius is in pixels, as \a centre is, and a very small one is enlarged.
    SelectionRing ringOf(int row, const QPointF &centre, double radius) const;
    //! Returns the picture of a ring that has one. The reference is valid until the next call.
    const Picture &picture(const SelectionRing &ring);
    //! Draws a ring that has no picture.
    void drawLarge(QPainter &painter, const QPointF &centre, double radius) const;

    bool isFor(const QColor &color, double pixelRatio) const
    {
        return color == m_color && pixelRatio == m_pixelRatio;
    }

private:
    Picture make(const SelectionRing &ring) const;

    QColor m_color;
    double m_pixelRatio;
    std::unordered_map<int, Picture> m_pictures;
};

} // namespace Corvale_Qt
