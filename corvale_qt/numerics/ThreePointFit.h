// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/PeakSearch.h"

#include <limits>

namespace Corvale_Qt {

/*! The Gaussian through three bins. Positions and widths are in bins; the centre of the first bin is at 0. Peak and sum are
    what was found, whatever the status; the other numbers are NaN unless the status is Ok. */
struct ThreePointFit
{
    //! Ok, NotEnoughChannels, PeakBelowThreshold, PeakOnEdge or NoRealWidth.
    FitStatus status = FitStatus::NotComputed;
    Peak<double> peak; //!< the largest value above 0
    double sum = 0; //!< of all values
    double mean = std::numeric_limits<double>::quiet_NaN(); //!< centre of the Gaussian
    double variance = std::numeric_limits<double>::quiet_NaN(); //!< sigma^2
    double sigma = std::numeric_limits<double>::quiet_NaN(); //!< standard deviation
    double height =
        std::numeric_limits<double>::quiet_NaN(); //!< height of the Gaussian at its mean
};

/*! Finds the Gaussian through the largest of \a count values and its two neighbours: the parabola through their logarithms
    (M. Gasior and J. L. Gonzalez, AIP Conference Proceedings 732, 276, 2004). A neighbour that is not positive counts as
    1e-20 of the peak. A peak below \a minimumPeak is refused. T is float or double. */
template<typename T>
CORVALE_QT_EXPORT ThreePointFit fitThreePoints(const T *values, int count, T minimumPeak = T(0));

extern template ThreePointFit fitThreePoints(const float *, int, float);
extern template ThreePointFit fitThreePoints(const double *, int, double);

} // namespace Corvale_Qt
