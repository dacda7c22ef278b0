// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/numerics/BeamEstimator.h>

#include <QVector>

namespace Monitor {

/*! The parameters of the statistics page as the library hands them out: those of the page at first, but without a lowest peak and sum,
    which depend on the unit. Profile, histogram and report use the same, whether the histogram shows its fits or not. */
struct FitParameters
{
    //! Threshold as a share of the peak, half width in channels, lowest peak, lowest sum, power of the weights, window of chi-square.
    QVector<double> regression = {0.1, 10.0, 0.0, 0.0, 2.0, 5.0};
    //! 0 for a threshold or 1 for a window, threshold as a share of the peak, half width in channels.
    QVector<double> centreOfGravity = {0.0, 0.1, 10.0};

    //! Returns these parameters as options of the estimators.
    Corvale_Qt::EstimatorOptions options() const;
};

} // namespace Monitor
