// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/BeamEstimator.h"

namespace Corvale_Qt {

BeamEstimate
estimateBeam(const BeamProfile &profile, BeamEstimator estimator, const LogParabolaOptions &options)
{
    switch (estimator) {
    case BeamEstimator::CentreOfGravity:
        return centreOfGravity(profile);
    case BeamEstimator::ThreePoints:
        return threePointGaussian(profile);
    case BeamEstimator::Regression:
        return logParabolaGaussian(profile, options);
    case BeamEstimator::LeastSquares:
        return leastSquaresGaussian(profile);
    case BeamEstimator::LeastSquaresLinear:
        return leastSquaresGaussian(profile, FitBackground::Linear);
    case BeamEstimator::HalfMaximum:
        return halfMaximumWidth(profile);
    case BeamEstimator::SecondMoment:
        return secondMomentWidth(profile);
    }
    return {};
}

FitStatus fitStatusOf(EstimateStatus status)
{
    switch (status) {
    case EstimateStatus::Ok:
        return FitStatus::Ok;
    case EstimateStatus::NotUsable:
    case EstimateStatus::NotEnoughCells:
        return FitStatus::NotEnoughChannels;
    case EstimateStatus::NoSignal:
        return FitStatus::SignalBelowThreshold;
    case EstimateStatus::PeakOnEdge:
        return FitStatus::PeakOnEdge;
    case EstimateStatus::NoRealWidth:
    case EstimateStatus::NotConverged:
        break;
    }
    return FitStatus::NoRealWidth;
}

} // namespace Corvale_Qt
