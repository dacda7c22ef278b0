// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>

namespace Corvale_Qt {

/*! Beam calculations of one frame. Lengths are in millimetres, positions from the detector's centre, X to the
    right and Y upwards, each mirrored where the display is told to invert that axis.

    What could not be computed is `invalid`: means and sigmas of an axis without a fit, both principal sigmas of a
    frame that is not valid. */
struct SpectrogramCalc
{
    //! Stands for "no value"; a number that no detector can give, and that hosts compare with.
    static constexpr double invalid = -10000.0;

    double sigmaX = invalid;
    double sigmaY = invalid;
    double elongation = 0; //!< sigma Y / sigma X of a strip pair, major / minor of a pixel matrix
    double integral = 0; //!< of the frame, in its unit
    double sigmaMajor = invalid;
    double sigmaMinor = invalid;
    double max = 0; //!< the raster's largest value; 0 of a strip pair without both fits
    double rotation =
        0; //!< of the major axis, degrees; up to half a turn more or less than the side bar shows
    double meanX = invalid;
    double meanY = invalid;
    bool valid = false;
};

// Hosts read the fields by their place.
static_assert(offsetof(SpectrogramCalc, sigmaX) == 0, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, sigmaY) == 8, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, elongation) == 16, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, integral) == 24, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, sigmaMajor) == 32, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, sigmaMinor) == 40, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, max) == 48, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, rotation) == 56, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, meanX) == 64, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, meanY) == 72, "fields keep their order");
static_assert(offsetof(SpectrogramCalc, valid) == 80, "fields keep their order");
static_assert(sizeof(SpectrogramCalc) == 88, "eleven fields of eight bytes");

} // namespace Corvale_Qt
