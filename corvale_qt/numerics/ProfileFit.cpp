// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"

#include "corvale_qt/numerics/GaussianConstants_p.h"

#include <cmath>

namespace Corvale_Qt {

ProfileFit::ProfileFit(const QVector<float> &binValues)
    : ProfileFit(binValues, -1.0F, -1.0F, -1.0F)
{
}

ProfileFit::ProfileFit(const QVector<float> &binValues,
                       float newMean,
                       float newSigma,
                       float newPeakHeight)
    : values(binValues)
    , peakHeight(newPeakHeight)
{
    setShape(newMean, newSigma);
}

void ProfileFit::setShape(float newMean, float newSigma)
{
    const bool usable = newSigma != 0 && !std::isnan(newSigma);
    mean = newMean;
    sigma = newSigma;
    invSigma = usable ? 1 / newSigma : -1.0F;
    expCoef = usable ? -0.5F * invSigma * invSigma : 0.0F;
    norm = usable ? GaussianConstants<float>::inverseSqrtTwoPi * invSigma : -1.0F;
    variance = newSigma >= 0 ? newSigma * newSigma : -1.0F;
}

float ProfileFit::at(float x) const
{
    if (!valid)
        return 0;
    const float distance = x - mean;
    return std::exp(distance * distance * expCoef) * norm * amplitude;
}

} // namespace Corvale_Qt
