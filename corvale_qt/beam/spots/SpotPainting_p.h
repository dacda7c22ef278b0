// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotMapView.h"

#include <QColor>
#include <QRectF>
#include <QSize>

#include <memory>

class QPainter;

namespace Corvale_Qt {

class GaussianRadialGradientBrush;
class SpotList;

//! Everything that a picture of spots depends on except the spots.
struct SpotStyle
{
    //! The size of the picture in device pixels.
    QSize pixels;
    //! Device pixels for each pixel of the widget.
    double pixelRatio = 1.0;
    //! The part of the map that fills the picture, in the map's units.
    QRectF bounds;
    //! Spots with 1.5 times this dose or more are opaque.
    float fullScaleDose = 0.0F;
    //! The colour of the spots or of the path.
    QColor color;
    QColor background;

    bool operator==(const SpotStyle &other) const;
    bool operator!=(const SpotStyle &other) const { return !(*this == other); }
};

/*! Returns the brush of a drawable spot in the unit square of the bounds, which must not be empty. The opacity
    runs from 0.1 for the smallest dose to 1.0; a dose of 0 is transparent and a negative dose blue. */
std::unique_ptr<GaussianRadialGradientBrush> createBrush(const SpotMapView::MapSpot &spot,
                                                         const SpotStyle &style);

//! Draws the spots from row \a first on.
void drawSpots(QPainter &painter, const SpotList &spots, int first, const SpotStyle &style);

//! Draws the lines that end at the spots from row \a first on. It skips spots that cannot be drawn.
void drawPath(QPainter &painter, const SpotList &spots, int first, const SpotStyle &style);

} // namespace Corvale_Qt
