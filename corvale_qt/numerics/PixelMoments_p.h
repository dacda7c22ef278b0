// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/RoundPixelDetector.h"

#include <array>

namespace Corvale_Qt {

/*! The moments of one frame. Positions and widths are in pixels. Positions are measured from the outer corner of the
    first cell, with rows running downwards; the centre of the detector is at 6.0. */
struct PixelMoments
{
    bool valid = false;
    double max = 0; //!< largest cell; 0 if none is above 0
    double integral = 0; //!< sum of the cells
    double meanX = 0; //!< centroid; the centre of the detector if the frame is not valid
    double meanY = 0;
    //! Direction of the major axis, in radians from columns to rows; 0 for a beam along a row, a column or a diagonal.
    double rotation = 0;
    double sigmaMajor = 0; //!< standard deviation along the major axis, at least 0.25
    double sigmaMinor = 0; //!< standard deviation along the minor axis, at least 0.25
    double elongation = 0; //!< major / minor
    double sigmaX = 0;
    double sigmaY = 0;
    //! Direction of the major axis, in radians from the X axis towards higher rows, in (-pi/2, pi/2].
    double axisAngle = 0;
    std::array<double, RoundPixelDetector::kCells> raster{}; //!< cells, row after row
};

/*! Computes the moments of the 128 \a readings, where readings below \a discriminator count as 0. The result is not
    valid if the sum is not positive, or if \a layout is neither 1 nor 2. */
PixelMoments computePixelMoments(const std::array<double, RoundPixelDetector::kReadings> &readings,
                                 double discriminator,
                                 int layout);

} // namespace Corvale_Qt
