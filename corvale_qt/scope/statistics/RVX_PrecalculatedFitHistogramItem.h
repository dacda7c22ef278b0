// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"

#include <QVariantList>

#include <array>

namespace Corvale_Qt {

/*! A Gaussian that the device has fitted, shown over the bars.

    Parameters: none that matter, but the second, half width in channels of the window over which the residual noise is
    taken (default 5). */
class CORVALE_QT_EXPORT RVX_PrecalculatedFitHistogramItem : public RVX_FitHistogramItem
{
public:
    RVX_PrecalculatedFitHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                      const QVector<double> &parameters,
                                      bool fullStatistics);

    /*! What the device says of its groups of channels, mean, sigma and peak height of each (see
        RVXAbstractPlotDataModel::DeviceFitRole), and which one is the item's, from 0. A group that is missing, or
        whose entries are no numbers, makes the next compute() fail. */
    void setDeviceFit(const QVariantList &fits, int group);
    bool usesDeviceFit() const override;
    bool compute(int offset, const QVector<float> &values, double axisUpper) override;

protected:
    QString fullLabel() const override;
    int fullLabelLines() const override;

private:
    //! Mean, sigma, peak height; -1 for none.
    std::array<float, 3> m_deviceFit{-1.0F, -1.0F, -1.0F};
    int m_noiseHalfWidth;
};

} // namespace Corvale_Qt
