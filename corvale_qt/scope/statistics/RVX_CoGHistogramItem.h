// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"

namespace Corvale_Qt {

//! Shows the centre of gravity of the bars, with standard deviation, skewness and kurtosis.
class CORVALE_QT_EXPORT RVX_CoGHistogramItem : public RVX_StatisticsHistogramItem
{
public:
    /*! Takes up to three parameters:
        0. how bars are chosen: 0 by threshold, any other number (after rounding) by window; default 0;
        1. the threshold as a fraction of the largest bar; default 0; a bar counts if it exceeds the threshold;
        2. the half width of the window in channels; default 1024.

        \a axisWidget shows the ticks and the label. It is not owned and may be null. With \a fullStatistics the label
        also has skewness and kurtosis. */
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
    double m_value = 0.0; //!< threshold as a fraction, or half width of the window in channels
};

} // namespace Corvale_Qt
