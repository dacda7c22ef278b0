// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileMoments.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

//! Sums over a range of bins. If a limit is given, values that are not above it count as 0.
template<typename T>
class Sums
{
public:
    Sums(const T *values, IndexRange range, const T *limit)
        : m_values(values)
        , m_range(range)
        , m_limit(limit)
    {
    }

    //! Returns the sum of value x (bin - centre)^order.
    double about(double centre, int order) const
    {
        double sum = 0;
        for (int i = m_range.first; i <= m_range.last; ++i) {
            if (m_limit && !(m_values[i] > *m_limit))
                continue;
            double term = m_values[i];
            for (int k = 0; k < order; ++k)
                term *= i - centre;
            sum += term;
        }
        return sum;
    }

private:
    const T *m_values;
    IndexRange m_range;
    const T *m_limit;
};

template<typename T>
FitStatus takeMoments(const Sums<T> &sums, ProfileMoments &moments)
{
    moments.sum = sums.about(0, 0);
    // Each test is written so that a NaN fails it.
    if (!(moments.sum > 0))
        return FitStatus::SignalBelowThreshold;
    const double mean = sums.about(0, 1) / moments.sum;
    if (!(mean >= moments.range.first && mean <= moments.range.last))
        return FitStatus::PeakOnEdge;
    const double variance = sums.about(mean, 2) / moments.sum;
    if (!(variance > 0) || !std::isfinite(variance))
        return FitStatus::NoRealWidth;
    moments.mean = mean;
    moments.variance = variance;
    moments.sigma = std::sqrt(variance);
    moments.skewness = sums.about(mean, 3) / moments.sum / std::pow(variance, 1.5);
    moments.kurtosis = sums.about(mean, 4) / moments.sum / (variance * variance);
    return FitStatus::Ok;
}

//! Searches the peak, above 0.
template<typename T>
ProfileMoments withPeak(const T *values, int count)
{
    const Peak<T> peak = findPeak(values, count, T(0));
    ProfileMoments moments;
    moments.peak = {peak.index, double(peak.value)};
    return moments;
}

} // namespace

template<typename T>
ProfileMoments momentsAbove(const T *values, int count, T fraction)
{
    ProfileMoments moments = withPeak(values, count);
    moments.status = FitStatus::NotEnoughChannels;
    if (count < 2)
        return moments;
    moments.range = {0, count - 1};
    const T limit = T(moments.peak.value) * fraction;
    moments.status = takeMoments(Sums<T>(values, moments.range, &limit), moments);
    return moments;
}

template<typename T>
ProfileMoments momentsInWindow(const T *values, int count, int halfWidth)
{
    ProfileMoments moments = withPeak(values, count);
    moments.status = FitStatus::NotEnoughChannels;
    if (count < 2)
        return moments;
    moments.range = windowAround(moments.peak.index, halfWidth, count);
    moments.status = takeMoments(Sums<T>(values, moments.range, nullptr), moments);
    return moments;
}

template ProfileMoments momentsAbove(const float *, int, float);
template ProfileMoments momentsAbove(const double *, int, double);
template ProfileMoments momentsInWindow(const float *, int, int);
template ProfileMoments momentsInWindow(const double *, int, int);

} // namespace Corvale_Qt
