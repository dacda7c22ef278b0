// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <array>

namespace Corvale_Qt {

//! The limits by which judgeEstimate() decides. Shares and residuals are fractions of 1.
struct CORVALE_QT_EXPORT VerdictLimits
{
    double residualRms = 0.05; //!< a larger one makes the fit poor
    double rSquared = 0.95; //!< a smaller one makes the fit poor
    double flaggedShare =
        0.05; //!< a larger share of the charge in dead, hot and saturated cells makes the fit poor
    double worstResidualRms = 0.20; //!< a larger one makes the estimate not valid
    double widestSigma = 0.5; //!< a sigma above this part of the detector's length is not valid
    double peakInNoise = 5; //!< a lower peak, in units of the noise, is not taken for a beam
    //! An estimate that does not subtract the background is poor above this ratio of background to peak.
    double background = 0.02;

    //! Returns whether all limits are the same.
    bool operator==(const VerdictLimits &other) const;
};

//! A limit and its key in the description of a detector.
struct VerdictLimitField
{
    const char *key = nullptr; //!< for example "residual_rms"
    double VerdictLimits::*limit = nullptr; //!< the limit itself
};

//! All limits, for programs that keep, show or compare them one by one.
constexpr std::array<VerdictLimitField, 7> verdictLimitFields = {
    {{"residual_rms", &VerdictLimits::residualRms},
     {"r_squared", &VerdictLimits::rSquared},
     {"flagged_share", &VerdictLimits::flaggedShare},
     {"worst_residual_rms", &VerdictLimits::worstResidualRms},
     {"widest_sigma", &VerdictLimits::widestSigma},
     {"peak_in_noise", &VerdictLimits::peakInNoise},
     {"background", &VerdictLimits::background}}};

} // namespace Corvale_Qt
