// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/PeakSearch_p.h"

#include <array>
#include <limits>

namespace Corvale_Qt {

/*! The choices in which the histogram items (float) and the beam-profile display (double) differ, although they
    share the fit. */
template<typename T>
struct RegressionRules;

template<>
struct RegressionRules<float>
{
    //! The peak is searched in the raw readings, and only above zero.
    static constexpr bool peakBeforePedestals = true;
    static constexpr float peakFloor = 0.0F;
    //! False: a negative weight power weights all bins alike.
    static constexpr bool negativePowers = false;
};

template<>
struct RegressionRules<double>
{
    //! The peak is the largest reading after the pedestals are subtracted, whatever its sign.
    static constexpr bool peakBeforePedestals = false;
    static constexpr double peakFloor = -std::numeric_limits<double>::infinity();
    static constexpr bool negativePowers = true;
};

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
    FitStatus status = FitStatus::NotEnoughChannels;
    Peak<T> peak;
    T correctedSum = T(0); //!< sum of all bins less the pedestals; filled whatever the status
    T mean = T(-1);
    T sigma = T(-1);
    T variance = T(-1);
    T height = T(-1); //!< height of the Gaussian at its mean
    T area = T(-1); //!< integral of the Gaussian over the bins
};

/*! Fits a Gaussian to \a count readings by weighted least squares on their logarithms (a parabola: Caruana's
    method, with the readings' powers as weights as Guo proposed, IEEE Signal Processing Magazine 28(5), 2011).

    Pedestals are subtracted from four quarters of count / 4 bins; up to three bins at the end keep their value.
    Readings that are not positive carry no weight. Sums and equations are double whatever T is, because in single
    precision the determinant of a wide run is noise. */
template<typename T>
RegressionResult<T> fitLogParabola(const T *values, int count, const RegressionOptions<T> &options);

extern template RegressionResult<float>
fitLogParabola(const float *, int, const RegressionOptions<float> &);
extern template RegressionResult<double>
fitLogParabola(const double *, int, const RegressionOptions<double> &);

} // namespace Corvale_Qt
