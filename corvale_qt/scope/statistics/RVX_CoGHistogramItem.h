// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"

namespace Corvale_Qt {

/*! Centre of gravity of the bars, with standard deviation, skewness and kurtosis.

    Parameters: how bars are chosen (0 by threshold, anything else by window, rounded; default 0), the threshold as
    a fraction of the largest bar (default 0), the window's half width in channels (default 1024). */
class CORVALE_QT_EXPORT RVX_CoGHistogramItem : public RVX_StatisticsHistogramItem
{
public:
    RVX_CoGHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                         const QVector<double> &parameters,
                         bool fullStatistics);

    bool compute(int offset, const QVector<float> &values, double axisUpper) override;
    QString label() const override;

private:
    enum class Mode {
        Threshold = 0,
        Window = 1,
    };

    Mode m_mode = Mode::Threshold;
    double m_value = 0.0; //!< the threshold's fraction, or the window's half width
};

} // namespace Corvale_Qt
