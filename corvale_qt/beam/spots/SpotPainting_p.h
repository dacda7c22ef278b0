// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/beam/spots/SpotMapView.h"

#include <QColor>
#include <QRectF>
#include <QSize>

#include <memory>

class QPainter;

namespace Corvale_Qt {

class GaussianRadialGradientBrush;
class SpotList;

//! All that a picture of spots depends on, besides the spots.
struct SpotScene
{
    QSize pixels;
    double pixelRatio = 1.0;
    //! The part of the map that fills the picture, in its units.
    QRectF bounds;
    //! Doses of 1.5 times this one and above have full opacity.
    float fullScaleDose = 0.0F;
    //! Of the spots, or of the path.
    QColor colour;
    QColor background;

    bool operator==(const SpotScene &other) const;
    bool operator!=(const SpotScene &other) const { return !(*this == other); }
};

/*! The brush of one drawable spot in the unit square of the scene's bounds, which must have an extent.
    Opacity runs from 0.1 for the smallest dose to 1.0; no dose is transparent, a negative one blue. */
std::unique_ptr<GaussianRadialGradientBrush> createBrush(const SpotMapView::MapSpot &spot,
                                                         const SpotScene &scene);

//! Draws the spots from row \a first on over the picture that \a painter paints on.
void drawSpots(QPainter &painter, const SpotList &spots, int first, const SpotScene &scene);

//! Draws the lines that end at the spots from row \a first on; spots that cannot be drawn are passed over.
void drawPath(QPainter &painter, const SpotList &spots, int first, const SpotScene &scene);

} // namespace Corvale_Qt
