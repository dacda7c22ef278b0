// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QVector>

#include <array>

namespace Corvale_Qt {

/*! The bin values of one histogram and the statistics that a computation found in them, in single precision.

    Positions and widths are in bins, the centre of the first bin at 0. Heights and sums are in the unit of the
    values. The values are shared with the vector they came in, not copied. A number that has not been computed has
    the value it is initialised with here. */
struct CORVALE_QT_EXPORT ProfileFit
{
    //! Takes the values of a histogram whose statistics are yet to be computed.
    explicit ProfileFit(const QVector<float> &binValues = {});
    //! Takes values with a shape that a device has fitted. The profile is not valid until the shape is adopted.
    ProfileFit(const QVector<float> &binValues, float mean, float sigma, float peakHeight);

    //! Returns the number of bins.
    int count() const { return values.size(); }
    //! Sets mean and sigma, and the numbers that follow from them (invSigma, expCoef, norm, variance).
    void setShape(float newMean, float newSigma);
    //! Returns the height of the fitted Gaussian at bin \a x, or 0 if the fit is not valid.
    float at(float x) const;

    QVector<float> values; //!< one for each bin
    float mean = -1.0F; //!< centre of the beam, bins
    float sigma = -1.0F; //!< standard deviation, bins
    float invSigma = -1.0F; //!< 1 / sigma; -1 if sigma is 0 or NaN
    float expCoef = 0.0F; //!< -0.5 / sigma^2
    float norm = -1.0F; //!< 1 / (sigma sqrt(2 pi))
    float variance = -1.0F; //!< sigma^2, square bins
    float skewness = -1.0F; //!< third standardised moment
    float kurtosis = 0.0F; //!< fourth standardised moment, 3 for a Gaussian
    float amplitude = -1.0F; //!< factor of the normalised Gaussian: its integral over the bins
    float peakHeight =
        -1.0F; //!< height of the Gaussian at its mean, from the regression or the device
    float sum = 0.0F; //!< sum of the values that were used
    float maxValue = -1.0F; //!< largest value above 0; 0 if a computation found none
    int maxIndex = -1; //!< bin of the largest value, counted from 0
    bool valid = false; //!< whether mean, sigma and amplitude describe a Gaussian
    std::array<float, 4> pedestals{{0, 0, 0, 0}}; //!< baseline of each quarter, for the regression
};

} // namespace Corvale_Qt
