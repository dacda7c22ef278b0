// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileNoise_p.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

struct Sums
{
    double signal = 0;
    double noise = 0;
    int signalCount = 0;
};

} // namespace

SignalToNoise signalToNoise(const ProfileFit &fit, float band)
{
    SignalToNoise result;
    if (!fit.valid)
        return result;
    const double lower = std::ceil(fit.mean - double(band) * fit.sigma);
    const double upper = std::floor(fit.mean + double(band) * fit.sigma);
    const auto isSignal = [lower, upper](int bin) {
        return bin >= lower && bin <= upper;
    };

    Sums sums;
    for (int i = 0; i < fit.count(); ++i) {
        (isSignal(i) ? sums.signal : sums.noise) += fit.values[i];
        sums.signalCount += isSignal(i);
    }
    const int outside = fit.count() - sums.signalCount;
    if (outside <= 1 || sums.signalCount == 0)
        return result;

    const double noiseMean = sums.noise / outside;
    double squares = 0;
    for (int i = 0; i < fit.count(); ++i) {
        if (!isSignal(i))
            squares += (fit.values[i] - noiseMean) * (fit.values[i] - noiseMean);
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
