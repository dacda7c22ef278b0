// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QVector>

#include <array>

namespace Corvale_Qt {

/*! Statistics of one histogram: what a computation found in its bin values, in single precision.

    Positions and widths are in bins, the first bin's centre at 0; heights and sums in the unit of the values. The
    readings are shared with the vector they came in, not copied. */
struct CORVALE_QT_EXPORT ProfileFit
{
    explicit ProfileFit(const QVector<float> &binValues = {});
    //! A profile whose shape is known beforehand, as a device delivers it; not valid until computed.
    ProfileFit(const QVector<float> &binValues, float mean, float sigma, float peakHeight);

    int count() const { return values.size(); }
    //! Takes a mean and a width with what follows from them (invSigma, expCoef, norm, variance).
    void setShape(float newMean, float newSigma);
    //! Height of the fitted Gaussian at bin \a x; 0 where the fit is not valid.
    float at(float x) const;

    QVector<float> values;
    float mean = -1.0F;
    float sigma = -1.0F;
    float invSigma = -1.0F;
    float expCoef = 0.0F; //!< -0.5 / sigma^2
    float norm = -1.0F; //!< 1 / (sigma sqrt(2 pi))
    float variance = -1.0F;
    float skewness = -1.0F; //!< third standardised moment
    float kurtosis = 0.0F; //!< fourth standardised moment, 3 for a Gaussian
    float amplitude = -1.0F; //!< of the normalised Gaussian: its integral over the bins
    float peakHeight = -1.0F;
    float sum = 0.0F; //!< of the values that were used
    float maxValue = -1.0F;
    int maxIndex = -1;
    bool valid = false;
    std::array<float, 4> pedestals{{0, 0, 0, 0}}; //!< baseline of each quarter, for the regression
};

} // namespace Corvale_Qt
