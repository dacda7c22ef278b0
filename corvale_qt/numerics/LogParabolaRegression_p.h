// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/PeakSearch_p.h"

#include <array>
#include <limits>

namespace Corvale_Qt {

/*! What the histogram items (float) and the beam-profile display (double) do differently with the same fit. */
template<typename T>
struct RegressionRules;

template<>
struct RegressionRules<float>
{
    //! The peak is looked for among the readings as they came, and only above zero.
    static constexpr bool peakBeforePedestals = true;
    static constexpr float peakFloor = 0.0F;
    //! A negative weight power counts as none.
    static constexpr bool negativePowers = false;
};

template<>
struct RegressionRules<double>
{
    //! The peak is the largest reading once the baseline is off, whatever its sign.
    static constexpr bool peakBeforePedestals = false;
    static constexpr double peakFloor = -std::numeric_limits<double>::infinity();
    static constexpr bool negativePowers = true;
};

template<typename T>
struct RegressionOptions
{
    //! Of the peak; the fit uses the run of bins around it that reach this.
    T thresholdFraction = T(0);
    int halfWidth = 1024; //!< bins on each side of the peak that the fit may use
    T minimumPeak = T(1e-15F); //!< in the unit of the readings
    int weightPower = 2; //!< a bin's weight is (reading / peak) to this power
    std::array<T, 4> pedestals{{0, 0, 0, 0}}; //!< baseline of each quarter of the profile
};

/*! Positions and widths are in bins, the first bin's centre at 0. */
template<typename T>
struct RegressionResult
{
    FitStatus status = FitStatus::NotEnoughChannels;
    Peak<T> peak;
    T correctedSum = T(0); //!< of all bins, less the pedestals; filled whatever the status
    T mean = T(-1);
    T sigma = T(-1);
    T variance = T(-1);
    T height = T(-1); //!< of the Gaussian at its mean
    T area = T(-1);
};

/*! Fits a Gaussian to \a count readings by weighted least squares on their logarithms (a parabola: Caruana's
    method, with the readings' powers as weights as Guo proposed, IEEE Signal Processing Magazine 28(5), 2011).

    Bins beyond four equal quarters have no pedestal taken off. Readings that are not positive carry no weight.
    Sums and equations are double whatever T is: in single precision the determinant of a wide run is noise. */
template<typename T>
RegressionResult<T> fitLogParabola(const T *values, int count, const RegressionOptions<T> &options);

extern template RegressionResult<float>
fitLogParabola(const float *, int, const RegressionOptions<float> &);
extern template RegressionResult<double>
fitLogParabola(const double *, int, const RegressionOptions<double> &);

} // namespace Corvale_Qt
