// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/BeamFrame.h"

#include <array>

namespace Corvale_Qt {

/*! The square raster that shows a detector. */
struct DetectorGrid
{
    int size = 0; //!< cells on each side; 0 without a layout
    double pitch = 0; //!< width of a cell, mm
    int bottomStep = 0; //!< cells between the labels of the bottom axis

    //! Returns the raster for a layout.
    static DetectorGrid of(ProfileLayout layout);
};

constexpr int kFrameReadings = 128;
using FrameReadings = std::array<double, kFrameReadings>;

//! Returns the first 128 of \a count values, with 0 for those that are missing or not finite.
FrameReadings frameReadings(const double *values, int count);
//! Returns the readings times \a factor, with 0 for products that are not finite.
FrameReadings scaled(FrameReadings readings, double factor);

//! Returns whether the two profiles of a strip frame sum to 0, so that there is nothing to show.
bool stripFrameIsEmpty(const FrameReadings &readings);

//! Computes a frame whose readings are all finite.
BeamFrame
computeFrame(ProfileLayout layout, const FrameReadings &readings, const FrameOptions &options);

//! Returns false if sums of huge readings gave numbers that no plot can take; such a frame is shown as not valid.
bool isPresentable(const SpectrogramCalc &calc);

} // namespace Corvale_Qt
