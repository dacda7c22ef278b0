// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/LogParabolaRegression_p.h"
#include "corvale_qt/numerics/PeakSearch_p.h"

namespace Corvale_Qt {

struct ProfileFit;

/*! \file
    The computations on a histogram's bins. Each takes the values from the record, fills it, and sets its
    `valid` where the status is Ok; on failure the record keeps the peak and the sum that were found. None throws,
    whatever the values are. */

/*! The window of 2 \a halfWidth + 1 bins around \a peak, pushed inside the profile; all of the profile where
    it does not fit. */
IndexRange windowAround(int peak, int halfWidth, int count);

//! Moments of the bins whose value is above \a fraction of the largest; the others count as 0.
FitStatus computeCentreOfGravityAbove(ProfileFit &fit, float fraction);
//! Moments of the bins in the window around the peak.
FitStatus computeCentreOfGravityInWindow(ProfileFit &fit, int halfWidth);
//! The Gaussian through the peak and its two neighbours.
FitStatus computeGaussabola(ProfileFit &fit, float minimumPeak);
//! Weighted log parabola; takes the pedestals of the record, not those of \a options.
FitStatus computeRegression(ProfileFit &fit, const RegressionOptions<float> &options);
//! Takes mean, sigma and peak height from the record, as the device gave them.
FitStatus adoptDeviceFit(ProfileFit &fit);

} // namespace Corvale_Qt
