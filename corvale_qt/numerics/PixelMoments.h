// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/RoundPixelDetector.h"

#include <array>

namespace Corvale_Qt {

/*! The moments of one frame of the round pixel-matrix detector. Positions and widths are in pixels. Positions are measured
    from the outer corner of the first cell, with rows running downwards; the centre of the detector is at 6.0. */
struct PixelMoments
{
    bool valid = false; //!< whether the status is Ok
    //! Ok, SignalBelowThreshold (the sum is not positive), NoRealWidth (a sum overflows), or NotComputed for a layout that is
    //! not known.
    FitStatus status = FitStatus::NotComputed;
    double max = 0; //!< largest cell; 0 if none is above 0
    double integral = 0; //!< sum of the cells
    double meanX = 0; //!< centroid; the centre of the detector if the frame is not valid
    double meanY = 0; //!< centroid, as meanX
    //! Direction of the major axis, in radians from columns to rows; 0 for a beam along a row, a column or a diagonal.
    double rotation = 0;
    double sigmaMajor = 0; //!< standard deviation along the major axis, at least 0.25
    double sigmaMinor = 0; //!< standard deviation along the minor axis, at least 0.25
    double elongation = 0; //!< major / minor
    double sigmaX = 0; //!< standard deviation along the columns, from left to right
    double sigmaY = 0; //!< standard deviation along the rows, from top to bottom
    //! Direction of the major axis, in radians from the X axis towards higher rows, in (-pi/2, pi/2].
    double axisAngle = 0;
    std::array<double, RoundPixelDetector::kCells> raster{}; //!< cells, row after row
};

/*! Computes the first and second moments of a frame of \a count \a readings, of which those below \a discriminator, those
    that are missing and NaN count as 0. RoundPixelDetector tells which reading lies where; readings beyond its 128 are
    ignored. The principal axes are those of the matrix of second moments (M.-K. Hu, IRE Transactions on Information
    Theory 8, 179, 1962). \a layout is 1 or 2, two makes of the detector that are wired alike. */
CORVALE_QT_EXPORT PixelMoments computePixelMoments(const double *readings,
                                                   int count,
                                                   double discriminator,
                                                   int layout = 1);

//! Computes the moments of a complete frame.
inline PixelMoments
computePixelMoments(const std::array<double, RoundPixelDetector::kReadings> &readings,
                    double discriminator,
                    int layout = 1)
{
    return computePixelMoments(readings.data(), int(readings.size()), discriminator, layout);
}

} // namespace Corvale_Qt
