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

/*! A brush's gradient has these steps across the whole map. A spot within fewer steps than narrowSteps would look like a square, and
    is painted with as many separate ones. */
constexpr double stepsAcrossTheMap = 56.0;
constexpr int narrowSteps = 16;

/*! Returns the opacity at the centre of a drawable spot: from 0.1 for the smallest dose to 1.0 for 1.5 times \a fullScaleDose; 0
    for a dose of 0, 0.95 for a negative dose. */
double spotOpacity(float dose, float fullScaleDose);

//! Returns the colour of a spot with a \a dose: blue if it is negative.
QColor spotColor(float dose, const SpotStyle &style);

/*! Returns the brush of a drawable spot in the unit square of the bounds, which must not be empty. */
std::unique_ptr<GaussianRadialGradientBrush> createBrush(const SpotMapView::MapSpot &spot,
                                                         const SpotStyle &style);

//! Draws the spots from row \a first on with their brushes. In memory, SpotShades does so in less time.
void drawSpots(QPainter &painter, const SpotList &spots, int first, const SpotStyle &style);

//! Draws the lines that end at the spots from row \a first on. It skips spots that cannot be drawn.
void drawPath(QPainter &painter, const SpotList &spots, int first, const SpotStyle &style);

} // namespace Corvale_Qt
