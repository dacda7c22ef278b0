// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

namespace Corvale_Qt {

struct ProfileFit;

/*! How far the signal of a fitted profile stands above the noise beside it. */
struct SignalToNoise
{
    //! False if there is no valid fit, fewer than two bins lie outside the signal, or none inside.
    bool computed = false;
    float ratio =
        1.0F; //!< signal sum / (root of the signal bins x noise sigma); infinite without noise
    float signalSum = 0.0F; //!< sum of the signal bins
    int signalCount = 0; //!< number of signal bins
    float noiseMean = 0.0F; //!< mean of the noise bins
    float noiseSigma = 0.0F; //!< sample standard deviation of the noise bins
};

/*! Compares the signal of a profile of \a count bins, those within \a band \a sigma of the \a mean, with the noise, the other
    bins. Mean and sigma are in bins, the centre of the first bin at 0. The ratio is that of the sum of n signal bins to the
    spread sqrt(n) s of a sum of n bins whose noise has the standard deviation s. T is float or double. */
template<typename T>
CORVALE_QT_EXPORT SignalToNoise
signalToNoise(const T *values, int count, double mean, double sigma, double band = 3.0);

extern template SignalToNoise signalToNoise(const float *, int, double, double, double);
extern template SignalToNoise signalToNoise(const double *, int, double, double, double);

//! Compares the signal of a fitted profile with its noise. Nothing is computed unless the fit is valid.
CORVALE_QT_EXPORT SignalToNoise signalToNoise(const ProfileFit &fit, float band = 3.0F);

/*! Returns the root of the summed squares of (value - fit) / largest value, over the window of \a halfWidth bins
    on each side of the peak; 0 if the fit is not valid. */
CORVALE_QT_EXPORT float residualNoise(const ProfileFit &fit, int halfWidth);

} // namespace Corvale_Qt
