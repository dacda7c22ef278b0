// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/ProfileEstimators.h"

namespace Corvale_Qt {

//! The ways to find a beam in a profile; docs/physics.md compares them.
enum class BeamEstimator {
    CentreOfGravity, //!< centreOfGravity()
    ThreePoints, //!< threePointGaussian()
    Regression, //!< logParabolaGaussian()
    LeastSquares, //!< leastSquaresGaussian() with a constant background
    LeastSquaresLinear, //!< leastSquaresGaussian() with a linear background
    HalfMaximum, //!< halfMaximumWidth()
    SecondMoment, //!< secondMomentWidth()
};

//! Estimates the beam in a profile. Only the regression uses the \a options.
CORVALE_QT_EXPORT BeamEstimate estimateBeam(const BeamProfile &profile,
                                            BeamEstimator estimator,
                                            const LogParabolaOptions &options = {});

//! Returns the status of a fit that says the same as that of an estimate.
CORVALE_QT_EXPORT FitStatus fitStatusOf(EstimateStatus status);

} // namespace Corvale_Qt
