// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileNoise.h"

#include "corvale_qt/numerics/PeakSearch.h"
#include "corvale_qt/numerics/ProfileFit.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

struct NoiseSums
{
    double signal = 0;
    double noise = 0;
    int signalCount = 0;
};

} // namespace

template<typename T>
SignalToNoise signalToNoise(const T *values, int count, double mean, double sigma, double band)
{
    SignalToNoise result;
    const double lower = std::ceil(mean - band * sigma);
    const double upper = std::floor(mean + band * sigma);
    const auto isSignal = [lower, upper](int bin) {
        return bin >= lower && bin <= upper;
    };

    NoiseSums sums;
    for (int i = 0; i < count; ++i) {
        (isSignal(i) ? sums.signal : sums.noise) += values[i];
        sums.signalCount += isSignal(i);
    }
    const int outside = count - sums.signalCount;
    if (outside <= 1 || sums.signalCount == 0)
        return result;

    const double noiseMean = sums.noise / outside;
    double squares = 0;
    for (int i = 0; i < count; ++i) {
        if (!isSignal(i))
            squares += (values[i] - noiseMean) * (values[i] - noiseMean);
    }
    const double noiseSigma = std::sqrt(squares / (outside - 1));
    result.computed = true;
    result.ratio =
        static_cast<float>(sums.signal / (std::sqrt(double(sums.signalCount)) * noiseSigma));
    result.signalSum = static_cast<float>(sums.signal);
    result.signalCount = sums.signalCount;
    result.noiseMean = static_cast<float>(noiseMean);
    result.noiseSigma = static_cast<float>(noiseSigma);
    return result;
}

template SignalToNoise signalToNoise(const float *, int, double, double, double);
template SignalToNoise signalToNoise(const double *, int, double, double, double);

SignalToNoise signalToNoise(const ProfileFit &fit, float band)
{
    if (!fit.valid)
        return SignalToNoise();
    return signalToNoise(fit.values.constData(),
                         fit.count(),
                         double(fit.mean),
                         double(fit.sigma),
                         double(band));
}

float residualNoise(const ProfileFit &fit, int halfWidth)
{
    if (!fit.valid)
        return 0;
    const IndexRange window = windowAround(fit.maxIndex, halfWidth, fit.count());
    double squares = 0;
    for (int i = window.first; i <= window.last; ++i) {
        const double misfit =
            (double(fit.values[i]) - fit.at(static_cast<float>(i))) / fit.maxValue;
        squares += misfit * misfit;
    }
    return static_cast<float>(std::sqrt(squares));
}

} // namespace Corvale_Qt
