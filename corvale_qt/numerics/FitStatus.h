// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Corvale_Qt {

/*! How a computation on a profile ended. The values are what hosts log and compare; they are negative where
    there is no result. */
enum class FitStatus : int {
    Ok = 0,
    NotEnoughChannels = -1,
    PeakBelowThreshold = -2,
    PeakOnEdge = -3,
    SignalBelowThreshold = -4,
    NotEnoughPeakChannels = -5,
    NoiseAboveThreshold = -6,
    //! The normal equations have no solution that the arithmetic can tell from noise.
    SingularEquations = -7,
    //! There is a solution, but no Gaussian: its width is not a positive number.
    NoRealWidth = -8,
};

} // namespace Corvale_Qt
