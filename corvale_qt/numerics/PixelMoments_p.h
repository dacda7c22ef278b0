// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <array>

namespace Corvale_Qt {

/*! The pixel-matrix detector: 120 of its 128 readings lie on a round area of 12 x 12 cells. */
namespace PixelGrid {

constexpr int size = 12;
constexpr int cells = size * size;
constexpr int readings = 128;
constexpr int unused = -1;

/*! Index of the reading shown in a cell, counted row after row from the top left; `unused` where the detector
    has no pixel, or the cell does not exist. */
int readingOfCell(int cell);

} // namespace PixelGrid

/*! Beam moments of one frame. Lengths are in pixels, measured from the outer corner of the first cell (rows
    downwards), so that the centre of the detector is at 6.0. */
struct PixelMoments
{
    bool valid = false;
    double max = 0;
    double integral = 0;
    double meanX = 0;
    double meanY = 0;
    //! Radians, in terms of columns and rows; 0 for a beam along a row or a column.
    double rotation = 0;
    double sigmaMajor = 0;
    double sigmaMinor = 0;
    double elongation = 0;
    double sigmaX = 0;
    double sigmaY = 0;
    //! Direction of the major axis, radians from the columns' direction towards higher rows, in (-pi/2, pi/2].
    double axisAngle = 0;
    std::array<double, PixelGrid::cells> raster{}; //!< row after row
};

/*! Moments of the 128 \a readings; one below the \a discriminator counts as 0. Not valid where nothing
    positive is left, or where \a layout is neither 1 nor 2. */
PixelMoments computePixelMoments(const std::array<double, PixelGrid::readings> &readings,
                                 double discriminator,
                                 int layout);

} // namespace Corvale_Qt
