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

//! What the estimators of estimateBeam() use; the others have nothing to be set.
struct CORVALE_QT_EXPORT EstimatorOptions
{
    LogParabolaOptions regression; //!< of Regression
    CentreOfGravityOptions centreOfGravity; //!< of CentreOfGravity
};

//! Estimates the beam in a profile.
CORVALE_QT_EXPORT BeamEstimate estimateBeam(const BeamProfile &profile,
                                            BeamEstimator estimator,
                                            const EstimatorOptions &options = {});

/*! Returns the options that the parameters of RVX_CoGHistogramItem stand for: 0 for a threshold and 1 for a window, the threshold as a
    share of the peak, the half width of the window in cells. Without any, all cells are used. */
CORVALE_QT_EXPORT CentreOfGravityOptions centreOfGravityOptions(const QVector<double> &parameters);

//! Returns the status of a fit that says the same as that of an estimate.
CORVALE_QT_EXPORT FitStatus fitStatusOf(EstimateStatus status);

} // namespace Corvale_Qt
