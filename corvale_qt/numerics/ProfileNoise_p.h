// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

struct ProfileFit;

/*! How far the signal of a fitted profile stands above what lies beside it. */
struct SignalToNoise
{
    //! False where fewer than two bins lie outside the signal, or none inside.
    bool computed = false;
    float ratio = 1.0F; //!< infinite where the bins outside are all alike
    float signalSum = 0.0F;
    int signalCount = 0;
    float noiseMean = 0.0F;
    float noiseSigma = 0.0F; //!< sample standard deviation of the bins outside
};

/*! Signal: the bins within \a band sigma of the mean; noise: the others. */
SignalToNoise signalToNoise(const ProfileFit &fit, float band = 3.0F);

/*! Root of the summed squares of (value - fit) / largest value, over the window of \a halfWidth bins around
    the peak. 0 where the fit is not valid. */
float residualNoise(const ProfileFit &fit, int halfWidth);

} // namespace Corvale_Qt
