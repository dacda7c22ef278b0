// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

struct ProfileFit;

/*! How far the signal of a fitted profile stands above the noise beside it. */
struct SignalToNoise
{
    //! False if the fit is not valid, fewer than two bins lie outside the signal, or none inside.
    bool computed = false;
    float ratio =
        1.0F; //!< signal sum / (root of the signal bins x noise sigma); infinite without noise
    float signalSum = 0.0F; //!< sum of the signal bins
    int signalCount = 0; //!< number of signal bins
    float noiseMean = 0.0F; //!< mean of the noise bins
    float noiseSigma = 0.0F; //!< sample standard deviation of the noise bins
};

/*! Compares the signal (the bins within \a band sigma of the mean) with the noise (the other bins). */
SignalToNoise signalToNoise(const ProfileFit &fit, float band = 3.0F);

/*! Returns the root of the summed squares of (value - fit) / largest value, over the window of \a halfWidth bins
    on each side of the peak; 0 if the fit is not valid. */
float residualNoise(const ProfileFit &fit, int halfWidth);

} // namespace Corvale_Qt
