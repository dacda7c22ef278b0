// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/BeamEstimator.h"
#include "corvale_qt/numerics/CellScreening.h"
#include "corvale_qt/numerics/ProfileEstimators.h"
#include "corvale_qt/scope/PlacedStatistics_p.h"
#include "corvale_qt/scope/statistics/StatisticsParameters_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

using Type = RVXScopePlotView::HistogramItemTypes;

//! Reads the parameters as RVX_RegressionHistogramItem does. Limits are readings; the fit compares densities.
BeamEstimate
regression(const BeamProfile &profile, const QVector<double> &parameters, double limitFactor)
{
    LogParabolaOptions options;
    double minimumPeak = 1e-15;
    if (parameters.size() >= 4) {
        options.thresholdFraction = parameters[0];
        options.halfWidth = toTruncated(parameters[1]);
        minimumPeak = parameters[2];
    }
    options.weightPower = toRounded(parameters.value(4, 2.0));
    const double largest = *std::max_element(profile.scales.begin(), profile.scales.end());
    options.minimumPeak = minimumPeak * limitFactor / largest;
    return logParabolaGaussian(profile, options);
}

/*! Converts a device's fit, which is in channels of the plane, to places. The profile lists strips by rising position, the device
    by channel. */
BeamEstimate ofDevice(const ProfileFit &fit, const BeamProfile &profile, bool reversed)
{
    BeamEstimate estimate;
    if (!fit.valid || profile.count() < 2)
        return estimate;
    const int last = profile.count() - 1;
    const double mean = reversed ? last - double(fit.mean) : double(fit.mean);
    const int left = std::clamp(int(std::floor(mean)), 0, last - 1);
    const double step = profile.positions[left + 1] - profile.positions[left];
    estimate.position.value = profile.positions[left] + (mean - left) * step;
    estimate.sigma.value = double(fit.sigma) * step;
    estimate.height.value = double(fit.peakHeight) / profile.scales[left];
    estimate.background.value = 0;
    estimate.status = estimate.sigma.value > 0 ? EstimateStatus::Ok : EstimateStatus::NoRealWidth;
    return estimate;
}

} // namespace

PlacedFit placedFit(Type type,
                    const QVector<double> &parameters,
                    const ChannelGroup &group,
                    const HistogramPlaces &places,
                    const DetectorFrame &frame,
                    const ProfileFit &deviceFit,
                    double limitFactor)
{
    PlacedFit fit;
    fit.lower = places.lower();
    fit.upper = places.upper();
    DetectorLayout::Axis axis{};
    if (!places.planeOf(group, &axis)) {
        fit.status = FitStatus::NotEnoughChannels;
        fit.message = tr("The channels belong to several planes.");
        return fit;
    }
    const DetectorLayout &layout = places.layout();
    fit.unit = layout.unit(axis).isEmpty() ? tr("cells") : layout.unit(axis);
    fit.shift = places.shift(axis);
    fit.profile = frame.profile(axis);
    flagHotCells(fit.profile);
    const QVector<double> positions = layout.positions(axis);
    const bool reversed = positions.first() > positions.last();
    switch (type) {
    case RVXScopePlotView::GaussabolaItem:
        fit.estimate = threePointGaussian(fit.profile);
        break;
    case RVXScopePlotView::CenterOfGravityItem:
        fit.estimate = centreOfGravity(fit.profile, centreOfGravityOptions(parameters));
        break;
    case RVXScopePlotView::RegressionItem:
        fit.estimate = regression(fit.profile, parameters, limitFactor);
        break;
    case RVXScopePlotView::PrecalculatedFitItem:
        fit.estimate = ofDevice(deviceFit, fit.profile, reversed);
        break;
    }
    fit.verdict = judgeEstimate(fit.profile, fit.estimate, layout.description().verdictLimits);
    fit.status = fitStatusOf(fit.estimate.status);
    fit.message = estimateStatusText(fit.estimate.status);
    return fit;
}

} // namespace Corvale_Qt
