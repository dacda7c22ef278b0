// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/detector/VerdictLimits.h"

#include <array>

namespace Corvale_Qt {

//! A limit and its key in the description of a detector.
struct VerdictLimitField
{
    const char *key;
    double VerdictLimits::*limit;
};

constexpr std::array<VerdictLimitField, 7> kVerdictLimitFields = {
    {{"residual_rms", &VerdictLimits::residualRms},
     {"r_squared", &VerdictLimits::rSquared},
     {"flagged_share", &VerdictLimits::flaggedShare},
     {"worst_residual_rms", &VerdictLimits::worstResidualRms},
     {"widest_sigma", &VerdictLimits::widestSigma},
     {"peak_in_noise", &VerdictLimits::peakInNoise},
     {"background", &VerdictLimits::background}}};

} // namespace Corvale_Qt
