// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/BeamEstimator.h"

#include "corvale_qt/numerics/ClampedInt_p.h"

#include <cmath>

namespace Corvale_Qt {

BeamEstimate
estimateBeam(const BeamProfile &profile, BeamEstimator estimator, const EstimatorOptions &options)
{
    switch (estimator) {
    case BeamEstimator::CentreOfGravity:
        return centreOfGravity(profile, options.centreOfGravity);
    case BeamEstimator::ThreePoints:
        return threePointGaussian(profile);
    case BeamEstimator::Regression:
        return logParabolaGaussian(profile, options.regression);
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

CentreOfGravityOptions centreOfGravityOptions(const QVector<double> &parameters)
{
    constexpr int all = 1024;
    constexpr int mostCells = 1000000;
    CentreOfGravityOptions options;
    if (parameters.isEmpty())
        return options;
    if (clampedToInt(std::round(parameters[0])) == 0)
        options.thresholdFraction = parameters.value(1);
    else
        options.halfWidth = clampedToInt(parameters.value(2, all), -mostCells, mostCells);
    return options;
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
