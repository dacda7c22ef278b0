// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Corvale_Qt {

/*! How a computation on a profile ended. Hosts log and compare these values: 0 is success, every failure is
    negative. */
enum class FitStatus : int {
    Ok = 0,
    NotEnoughChannels = -1,
    PeakBelowThreshold = -2,
    PeakOnEdge = -3,
    SignalBelowThreshold = -4,
    NotEnoughPeakChannels = -5,
    NoiseAboveThreshold = -6,
    //! The normal equations are singular to working precision.
    SingularEquations = -7,
    //! The equations have a solution, but its width is not a positive, finite number.
    NoRealWidth = -8,
    //! Nothing was computed: there is no sample yet, or no longer. No computation returns this.
    NotComputed = -9,
};

} // namespace Corvale_Qt
