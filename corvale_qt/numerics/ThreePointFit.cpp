// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ThreePointFit.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

template<typename T>
FitStatus fitAroundPeak(const T *values, int count, T minimumPeak, ThreePointFit &fit)
{
    if (double(minimumPeak) > fit.peak.value)
        return FitStatus::PeakBelowThreshold;
    const int peak = fit.peak.index;
    if (peak < 1 || peak >= count - 1)
        return FitStatus::PeakOnEdge;
    const auto logarithm = [&](int bin) {
        const double relative = double(values[bin]) / fit.peak.value;
        return std::log(relative > 0 ? relative : 1.0e-20);
    };
    const double right = logarithm(peak + 1);
    const double left = logarithm(peak - 1);
    const double a = (right + left) / 2;
    const double b = right - (2.0 * peak + 1) * a;
    const double mean = -b / (2 * a);
    const double variance = -1 / (2 * a);
    const double height = fit.peak.value * std::exp((peak - mean) * (peak - mean) / (2 * variance));
    // Written so that a NaN fails it.
    if (!(variance > 0) || !std::isfinite(variance) || !std::isfinite(mean)
        || !std::isfinite(height))
        return FitStatus::NoRealWidth;
    fit.mean = mean;
    fit.variance = variance;
    fit.sigma = std::sqrt(variance);
    fit.height = height;
    return FitStatus::Ok;
}

} // namespace

template<typename T>
ThreePointFit fitThreePoints(const T *values, int count, T minimumPeak)
{
    const Peak<T> peak = findPeak(values, count, T(0));
    ThreePointFit fit;
    fit.peak = {peak.index, double(peak.value)};
    for (int i = 0; i < count; ++i)
        fit.sum += double(values[i]);
    fit.status =
        count < 3 ? FitStatus::NotEnoughChannels : fitAroundPeak(values, count, minimumPeak, fit);
    return fit;
}

template ThreePointFit fitThreePoints(const float *, int, float);
template ThreePointFit fitThreePoints(const double *, int, double);

} // namespace Corvale_Qt
