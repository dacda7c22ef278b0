// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"

#include <memory>

namespace Corvale_Qt {

class RVX_RegressionHistogramItemPrivate;

/*! A Gaussian by weighted regression on the logarithms of the bars around the peak.

    Parameters: fraction of the peak that a bar must reach (default 0), half width of the window in channels (1024),
    smallest peak (1e-15), smallest sum of all bars (1e-14), power of the weights (2), half width in channels of the
    window over which the residual noise is taken (5). The first four are taken together or not at all. With full
    statistics, a fit whose residual noise exceeds 1 is none. */
class CORVALE_QT_EXPORT RVX_RegressionHistogramItem : public RVX_FitHistogramItem
{
public:
    RVX_RegressionHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                const QVector<double> &parameters,
                                bool fullStatistics);
    ~RVX_RegressionHistogramItem() override;

    bool compute(int offset, const QVector<float> &values, double axisUpper) override;

private:
    const std::unique_ptr<RVX_RegressionHistogramItemPrivate> d;
};

} // namespace Corvale_Qt
