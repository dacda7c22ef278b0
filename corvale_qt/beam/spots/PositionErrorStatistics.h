// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <limits>

namespace Corvale_Qt {

/*! The numbers of a set of position errors, in the unit of the errors, usually millimetres. A number that cannot be computed
    is NaN. */
struct PositionErrorStatistics
{
    int spots = 0; //!< number of all spots; 0: nothing was computed
    int incomplete =
        0; //!< number of spots with an error that is not a finite number, in X, in Y or in both
    double meanX = std::numeric_limits<double>::quiet_NaN(); //!< mean of the finite errors in X
    double meanY = std::numeric_limits<double>::quiet_NaN(); //!< mean of the finite errors in Y
    //! Sample standard deviation of the finite errors in X; NaN for fewer than two.
    double sigmaX = std::numeric_limits<double>::quiet_NaN();
    double sigmaY = std::numeric_limits<double>::quiet_NaN(); //!< the same in Y
    double worst =
        std::numeric_limits<double>::quiet_NaN(); //!< the longest error of the complete spots
    int worstSpot =
        -1; //!< which spot that is, counted from 0; of several the first; -1 if there is none
    /*! Number of spots with a finite error outside of the tolerance, in X, in Y or in both; -1 without a tolerance. An error
        as large as the tolerance is inside. */
    int outside = -1;

    //! Returns whether there was a spot to compute from.
    bool isComputed() const { return spots > 0; }
};

/*! Computes the numbers of \a count position errors (x[i], y[i]). A tolerance is half the width \a toleranceX and half the
    height \a toleranceY of the frame around 0; it counts if both are above 0. */
CORVALE_QT_EXPORT PositionErrorStatistics positionErrorStatistics(const double *x,
                                                                  const double *y,
                                                                  int count,
                                                                  double toleranceX = 0,
                                                                  double toleranceY = 0);

} // namespace Corvale_Qt
