// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"

#include <memory>

namespace Corvale_Qt {

class RVX_RegressionHistogramItemPrivate;

//! Shows a Gaussian found by weighted linear regression on the logarithms of the bars around the peak.
class CORVALE_QT_EXPORT RVX_RegressionHistogramItem : public RVX_FitHistogramItem
{
public:
    /*! Takes up to six parameters:
        0. the fraction of the peak that a bar must reach; default 0;
        1. the half width of the window around the peak in channels; default 1024;
        2. the smallest peak that is fitted, in the base unit (see setLimitFactor()); default 1e-15;
        3. the smallest sum of all bars, in the base unit; default 1e-14;
        4. the weight of a bar as a power of its height; default 2;
        5. the half width in channels of the window around the peak in which residualNoise() is taken; default 5.

        Parameters 0 to 3 keep their defaults unless all four are given. With \a fullStatistics, a fit whose residual
        noise exceeds 1 is refused with FitStatus::NoiseAboveThreshold.

        \a axisWidget shows the ticks and the label. It is not owned and may be null. */
    RVX_RegressionHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                const QVector<double> &parameters,
                                bool fullStatistics);
    ~RVX_RegressionHistogramItem() override;

    bool compute(int offset, const QVector<float> &values, double axisUpper) override;

private:
    Q_DECLARE_PRIVATE(RVX_RegressionHistogramItem)
    const std::unique_ptr<RVX_RegressionHistogramItemPrivate> d_ptr;
};

} // namespace Corvale_Qt
