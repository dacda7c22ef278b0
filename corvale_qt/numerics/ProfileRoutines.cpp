// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/GaussianConstants_p.h"
#include "corvale_qt/numerics/NormalDensity_p.h"
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"

#include <algorithm>
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

//! Sums over a range of bins. If a limit is given, values that are not above it count as 0.
class Moments
{
public:
    Moments(const ProfileFit &fit, IndexRange range, const float *limit)
        : m_fit(fit)
        , m_range(range)
        , m_limit(limit)
    {
    }

    //! Returns the sum of value x (bin - centre)^order.
    double about(double centre, int order) const
    {
        double sum = 0;
        for (int i = m_range.first; i <= m_range.last; ++i) {
            const float value = m_fit.values[i];
            if (m_limit && !(value > *m_limit))
                continue;
            double term = value;
            for (int k = 0; k < order; ++k)
                term *= i - centre;
            sum += term;
        }
        return sum;
    }

private:
    const ProfileFit &m_fit;
    IndexRange m_range;
    const float *m_limit;
};

FitStatus takeMoments(ProfileFit &fit, IndexRange range, const float *limit)
{
    const Moments moments(fit, range, limit);
    const double sum = moments.about(0, 0);
    fit.sum = static_cast<float>(sum);
    // Each test is written so that a NaN fails it.
    if (!(sum > 0))
        return FitStatus::SignalBelowThreshold;
    const double mean = moments.about(0, 1) / sum;
    if (!(mean >= range.first && mean <= range.last))
        return FitStatus::PeakOnEdge;
    const double variance = moments.about(mean, 2) / sum;
    if (!(variance > 0))
        return FitStatus::NoRealWidth;
    const FitStatus status = takeShapeThroughPeak(fit, mean, variance);
    if (status == FitStatus::Ok) {
        fit.skewness = static_cast<float>(moments.about(mean, 3) / sum / std::pow(variance, 1.5));
        fit.kurtosis = static_cast<float>(moments.about(mean, 4) / sum / (variance * variance));
    }
    return status;
}

} // namespace

IndexRange windowAround(int peak, int halfWidth, int count)
{
    const int w = std::min(std::max(halfWidth, 0), count); // 2 w + 1 must not overflow
    if (2 * w + 1 >= count)
        return {0, count - 1};
    if (peak - w < 0)
        return {0, 2 * w};
    if (peak + w > count - 1)
        return {count - 1 - 2 * w, count - 1};
    return {peak - w, peak + w};
}

FitStatus computeCentreOfGravityAbove(ProfileFit &fit, float fraction)
{
    if (fit.count() < 2)
        return FitStatus::NotEnoughChannels;
    fit.valid = false;
    fit.sum = 0;
    searchPeak(fit);
    const float limit = fit.maxValue * fraction;
    return takeMoments(fit, {0, fit.count() - 1}, &limit);
}

FitStatus computeCentreOfGravityInWindow(ProfileFit &fit, int halfWidth)
{
    if (fit.count() < 2)
        return FitStatus::NotEnoughChannels;
    fit.valid = false;
    fit.sum = 0;
    searchPeak(fit);
    return takeMoments(fit, windowAround(fit.maxIndex, halfWidth, fit.count()), nullptr);
}

FitStatus computeGaussabola(ProfileFit &fit, float minimumPeak)
{
    if (fit.count() < 3)
        return FitStatus::NotEnoughChannels;
    fit.valid = false;
    double sum = 0;
    for (float value : qAsConst(fit.values))
        sum += value;
    fit.sum = static_cast<float>(sum);
    searchPeak(fit);
    if (minimumPeak > fit.maxValue)
        return FitStatus::PeakBelowThreshold;
    const int peak = fit.maxIndex;
    if (peak < 1 || peak >= fit.count() - 1)
        return FitStatus::PeakOnEdge;

    const auto logarithm = [&fit](int bin) {
        const double relative = double(fit.values[bin]) / fit.maxValue;
        return std::log(relative > 0 ? relative : 1.0e-20);
    };
    const double right = logarithm(peak + 1);
    const double left = logarithm(peak - 1);
    const double a = (right + left) / 2;
    const double b = right - (2.0 * peak + 1) * a;
    return takeShapeThroughPeak(fit, -b / (2 * a), -1 / (2 * a));
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
