// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/LogParabolaRegression.h"

namespace Corvale_Qt {

struct ProfileFit;

/*! \file
    The computations on a histogram's bins. Each reads the values of the record, fills in the results, and sets
    `valid` if the status is Ok. On failure the record keeps the peak and the sum that were found. None of them
    throws, whatever the values are. */

//! Computes the moments of the bins whose value is above \a fraction of the largest; other bins count as 0.
FitStatus computeCentreOfGravityAbove(ProfileFit &fit, float fraction);
//! Computes the moments of the bins in windowAround() the peak.
FitStatus computeCentreOfGravityInWindow(ProfileFit &fit, int halfWidth);
//! Fits the Gaussian through the peak and its two neighbours.
FitStatus computeGaussabola(ProfileFit &fit, float minimumPeak);
//! Fits a Gaussian by fitLogParabola(), with the pedestals of the record instead of those of \a options.
FitStatus computeRegression(ProfileFit &fit, const RegressionOptions<float> &options);
//! Makes the record valid from the mean, sigma and peak height that the device gave.
FitStatus adoptDeviceFit(ProfileFit &fit);

} // namespace Corvale_Qt
