// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>

namespace Corvale_Qt {

/*! The beam numbers of one frame. Lengths are in millimetres. Positions are measured from the centre of the
    detector, X to the right and Y upwards; an axis that the display inverts is mirrored.

    Numbers that could not be computed are `invalid`: mean and sigma of an axis without a fit, and both principal
    sigmas of a frame that is not valid. */
struct SpectrogramCalc
{
    //! Means "no value". No detector can give this number; hosts compare with it.
    static constexpr double invalid = -10000.0;

    double sigmaX = invalid; //!< standard deviation along X, mm
    double sigmaY = invalid; //!< standard deviation along Y, mm
    double elongation = 0; //!< sigma Y / sigma X of a strip pair, major / minor of a pixel matrix
    double integral = 0; //!< sum of the frame's readings, in coulomb or ampere
    double sigmaMajor = invalid; //!< standard deviation along the major axis, mm
    double sigmaMinor = invalid; //!< standard deviation along the minor axis, mm
    double max = 0; //!< largest value of the raster; 0 for a strip pair without both fits
    //! Direction of the major axis in degrees. It may differ by half a turn from the one in the side bar.
    double rotation = 0;
    double meanX = invalid; //!< position of the beam along X, mm
    double meanY = invalid; //!< position of the beam along Y, mm
    bool valid = false; //!< whether every number of the frame could be computed
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
