// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/PeakSearch.h"

#include <limits>

namespace Corvale_Qt {

/*! The moments of a profile of equidistant bins. Positions and widths are in bins; the centre of the first bin is at 0.
    Peak, range and sum are what was found, whatever the status; the other numbers are NaN unless the status is Ok. */
struct ProfileMoments
{
    //! Ok, NotEnoughChannels, SignalBelowThreshold (the sum is not positive), PeakOnEdge (the centroid lies outside the
    //! range) or NoRealWidth.
    FitStatus status = FitStatus::NotComputed;
    Peak<double> peak; //!< the largest value above 0
    IndexRange range; //!< the bins that were used
    double sum = 0; //!< of the values that were used
    double mean = std::numeric_limits<double>::quiet_NaN(); //!< centroid
    double variance = std::numeric_limits<double>::quiet_NaN(); //!< second central moment
    double sigma = std::numeric_limits<double>::quiet_NaN(); //!< root of the variance
    double skewness = std::numeric_limits<double>::quiet_NaN(); //!< third moment / sigma^3
    double kurtosis =
        std::numeric_limits<double>::quiet_NaN(); //!< fourth moment / sigma^4; 3 for a Gaussian
};

/*! Computes the moments of \a count values; those that are not above \a fraction of the largest count as 0. Sums are double
    whatever T is; T is float or double. */
template<typename T>
CORVALE_QT_EXPORT ProfileMoments momentsAbove(const T *values, int count, T fraction);

/*! Computes the moments of the values in a window of 2 \a halfWidth + 1 bins around the largest of \a count values; see
    windowAround(). T is float or double. */
template<typename T>
CORVALE_QT_EXPORT ProfileMoments momentsInWindow(const T *values, int count, int halfWidth);

extern template ProfileMoments momentsAbove(const float *, int, float);
extern template ProfileMoments momentsAbove(const double *, int, double);
extern template ProfileMoments momentsInWindow(const float *, int, int);
extern template ProfileMoments momentsInWindow(const double *, int, int);

} // namespace Corvale_Qt
