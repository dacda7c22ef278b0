// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"

namespace Corvale_Qt {

/*! The Gaussian through the largest bar and its two neighbours.

    Parameters: smallest peak that is fitted (default 1e-15), half width in channels of the window over which the
    residual noise is taken (default 5). */
class CORVALE_QT_EXPORT RVX_GaussabolaHistogramItem : public RVX_FitHistogramItem
{
public:
    RVX_GaussabolaHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                const QVector<double> &parameters,
                                bool fullStatistics);

    bool compute(int offset, const QVector<float> &values, double axisUpper) override;

private:
    double m_minimumPeak;
    int m_noiseHalfWidth;
};

} // namespace Corvale_Qt
