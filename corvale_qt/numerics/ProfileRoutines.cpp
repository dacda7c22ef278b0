// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/GaussianConstants_p.h"
#include "corvale_qt/numerics/NormalDensity_p.h"
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileMoments.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"
#include "corvale_qt/numerics/ThreePointFit.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

void searchPeak(ProfileFit &fit)
{
    const Peak<float> peak = findPeak(fit.values.constData(), fit.count(), 0.0F);
    fit.maxValue = peak.value;
    if (peak.index >= 0)
        fit.maxIndex = peak.index;
}

//! Takes the Gaussian that has the peak's height in the peak's bin.
FitStatus takeShapeThroughPeak(ProfileFit &fit, double mean, double variance)
{
    const auto centre = static_cast<float>(mean);
    const auto sigma = static_cast<float>(std::sqrt(variance));
    float amplitude = 0;
    const FitStatus status =
        areaFromHeight(fit.maxValue, static_cast<float>(fit.maxIndex), centre, sigma, amplitude);
    if (status != FitStatus::Ok)
        return status;
    fit.setShape(centre, sigma);
    fit.variance = static_cast<float>(variance);
    fit.amplitude = amplitude;
    fit.valid = true;
    return FitStatus::Ok;
}

//! Takes what a computation on the bins found in double precision.
void takePeak(ProfileFit &fit, const Peak<double> &peak, double sum)
{
    fit.valid = false;
    fit.sum = static_cast<float>(sum);
    fit.maxValue = static_cast<float>(peak.value);
    if (peak.index >= 0)
        fit.maxIndex = peak.index;
}

FitStatus takeMoments(ProfileFit &fit, const ProfileMoments &moments)
{
    if (moments.status == FitStatus::NotEnoughChannels)
        return moments.status;
    takePeak(fit, moments.peak, moments.sum);
    if (moments.status != FitStatus::Ok)
        return moments.status;
    const FitStatus status = takeShapeThroughPeak(fit, moments.mean, moments.variance);
    if (status == FitStatus::Ok) {
        fit.skewness = static_cast<float>(moments.skewness);
        fit.kurtosis = static_cast<float>(moments.kurtosis);
    }
    return status;
}

} // namespace

FitStatus computeCentreOfGravityAbove(ProfileFit &fit, float fraction)
{
    return takeMoments(fit, momentsAbove(fit.values.constData(), fit.count(), fraction));
}

FitStatus computeCentreOfGravityInWindow(ProfileFit &fit, int halfWidth)
{
    return takeMoments(fit, momentsInWindow(fit.values.constData(), fit.count(), halfWidth));
}

FitStatus computeGaussabola(ProfileFit &fit, float minimumPeak)
{
    const ThreePointFit found = fitThreePoints(fit.values.constData(), fit.count(), minimumPeak);
    if (found.status == FitStatus::NotEnoughChannels)
        return found.status;
    takePeak(fit, found.peak, found.sum);
    return found.status == FitStatus::Ok ? takeShapeThroughPeak(fit, found.mean, found.variance)
                                         : found.status;
}

FitStatus computeRegression(ProfileFit &fit, const RegressionOptions<float> &options)
{
    RegressionOptions<float> own = options;
    own.pedestals = fit.pedestals;
    const auto result = fitLogParabola(fit.values.constData(), fit.count(), own);
    fit.valid = false;
    fit.sum = result.correctedSum;
    fit.maxValue = result.peak.value;
    if (result.peak.index >= 0)
        fit.maxIndex = result.peak.index;
    if (result.status != FitStatus::Ok)
        return result.status;
    fit.setShape(result.mean, result.sigma);
    fit.variance = result.variance;
    fit.peakHeight = result.height;
    fit.amplitude = result.area;
    fit.valid = true;
    return FitStatus::Ok;
}

FitStatus adoptDeviceFit(ProfileFit &fit)
{
    fit.valid = false;
    searchPeak(fit);
    const float amplitude = fit.peakHeight * fit.sigma * GaussianConstants<float>::sqrtTwoPi;
    const bool usable =
        fit.mean >= 0 && fit.sigma > 0 && std::isfinite(fit.mean) && std::isfinite(fit.sigma);
    if (!usable || !std::isfinite(amplitude))
        return FitStatus::NoRealWidth;
    fit.setShape(fit.mean, fit.sigma);
    fit.amplitude = amplitude;
    fit.valid = true;
    return FitStatus::Ok;
}

} // namespace Corvale_Qt
