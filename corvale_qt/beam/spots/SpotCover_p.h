// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <cstddef>

namespace Corvale_Qt {

//! A row of a spot.
struct SpotRow
{
    float height = 0.0F; //!< the Gaussian along y, in parts of a pixel's colour
    int first = 0; //!< the first column that the spot reaches
    int behind = 0; //!< the one behind the last
};

/*! How a spot covers pixels. Its value at a pixel is the Gaussian along x times that along y; at the rim this value g bends down to 0:
    min(g, slope x g - offset). */
struct SpotCover
{
    const float *alongX = nullptr; //!< the Gaussian along x
    const SpotRow *rows = nullptr;
    int rowCount = 0;
    float slope = 0.0F;
    float offset = 0.0F;

    /*! Is added to each part of the background, where it cannot be seen. Otherwise products would become denormal numbers, which
        are slow. */
    static constexpr float leastBackground = 1e-12F;
    //! As many numbers behind the last one are read, both of the Gaussian along x and of pixels, and pixels are written as they were.
    static constexpr int slack = 7;

    //! Returns what is left of a part of the background where the Gaussian is \a gauss.
    float covered(float background, float gauss) const
    {
        const float inside = 1.0F - gauss, atRim = (1.0F + offset) - slope * gauss;
        return background * (inside > atRim ? inside : atRim) + leastBackground;
    }
};

/*! Multiplies what shows of the background with what a spot leaves of it, as SpotCover::covered() does. \a pixels is the pixel of the
    first column in the first row, and \a stride the distance of two rows. */
using CoverPixels = void (*)(float *pixels, std::ptrdiff_t stride, const SpotCover &spot);

//! Returns the function that every processor can run.
CoverPixels plainCover();
//! Returns the fastest function for this processor. It gives the same bits.
CoverPixels fastestCover();

} // namespace Corvale_Qt
