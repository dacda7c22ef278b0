// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/PeakSearch.h"

#include <array>

namespace Corvale_Qt {

/*! Settings of fitLogParabola(). */
template<typename T>
struct RegressionOptions
{
    //! The fit uses the unbroken run of bins around the peak that reach this fraction of the peak.
    T thresholdFraction = T(0);
    int halfWidth = 1024; //!< bins on each side of the peak that the fit may use
    T minimumPeak = T(1e-15F); //!< a lower peak is not fitted; in the unit of the readings
    int weightPower = 2; //!< a bin's weight is (reading / peak) to this power
    std::array<T, 4> pedestals{{0, 0, 0, 0}}; //!< baseline of each quarter of the profile
};

/*! Result of fitLogParabola(). Positions and widths are in bins; the centre of the first bin is at 0. The fitted
    numbers stay -1 unless the status is Ok. */
template<typename T>
struct RegressionResult
{
    //! Ok, NotEnoughChannels, PeakOnEdge, PeakBelowThreshold, NotEnoughPeakChannels, SingularEquations or NoRealWidth.
    FitStatus status = FitStatus::NotComputed;
    Peak<T> peak; //!< the largest reading, which the fit starts from
    T correctedSum = T(0); //!< sum of all bins less the pedestals; filled whatever the status
    T mean = T(-1); //!< centre of the Gaussian
    T sigma = T(-1); //!< standard deviation
    T variance = T(-1); //!< sigma^2
    T height = T(-1); //!< height of the Gaussian at its mean
    T area = T(-1); //!< integral of the Gaussian over the bins
};

/*! Fits a Gaussian to \a count readings of equidistant bins by weighted least squares on their logarithms (a parabola:
    R. A. Caruana et al., Analytical Chemistry 58, 1162, 1986; with powers of the readings as weights as proposed by
    H. Guo, IEEE Signal Processing Magazine 28(5), 134, 2011). Readings that follow a Gaussian exactly give it exactly.

    Pedestals are subtracted from four quarters of count / 4 bins; up to three bins at the end keep their value.
    Readings that are not positive carry no weight. Sums and equations are double whatever T is, because in single
    precision the determinant of a wide run is noise.

    T is float or double. The two differ in three choices. In single precision the peak is searched in the readings as they
    are, above zero, and a negative weight power weights all bins alike; in double precision the peak is searched after
    the pedestals are subtracted, whatever its sign, and a negative power is applied. */
template<typename T>
CORVALE_QT_EXPORT RegressionResult<T>
fitLogParabola(const T *values, int count, const RegressionOptions<T> &options = {});

extern template RegressionResult<float>
fitLogParabola(const float *, int, const RegressionOptions<float> &);
extern template RegressionResult<double>
fitLogParabola(const double *, int, const RegressionOptions<double> &);

} // namespace Corvale_Qt
