// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"

namespace Corvale_Qt {

//! Shows the Gaussian through the largest bar and its two neighbours.
class CORVALE_QT_EXPORT RVX_GaussabolaHistogramItem : public RVX_FitHistogramItem
{
public:
    /*! Takes up to two parameters:
        0. the smallest peak that is fitted, in the base unit (see setLimitFactor()); default 1e-15;
        1. the half width in channels of the window around the peak in which residualNoise() is taken; default 5.

        \a axisWidget shows the ticks and the label. It is not owned and may be null. */
    RVX_GaussabolaHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                const QVector<double> &parameters,
                                bool fullStatistics);

    bool compute(int offset, const QVector<float> &values, double axisUpper) override;

private:
    double m_minimumPeak;
    int m_noiseHalfWidth;
};

} // namespace Corvale_Qt
