// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"

#include <QVariantList>

#include <array>

namespace Corvale_Qt {

//! Shows a Gaussian that was fitted by the device.
class CORVALE_QT_EXPORT RVX_PrecalculatedFitHistogramItem : public RVX_FitHistogramItem
{
public:
    /*! Takes up to two parameters, of which the first is ignored. The second is the half width in channels of the
        window around the peak in which residualNoise() is taken; default 5.

        \a axisWidget shows the ticks and the label. It is not owned and may be null. */
    RVX_PrecalculatedFitHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                      const QVector<double> &parameters,
                                      bool fullStatistics);

    /*! Sets the fits of the device: mean, sigma and peak height of each group of channels (see
        RVXAbstractPlotDataModel::DeviceFitRole). \a group is the index of the item's group, counted from 0. If the
        group is missing or one of its entries is not a number, the next compute() fails with "Fit failed.". */
    void setDeviceFit(const QVariantList &fits, int group);
    bool usesDeviceFit() const override;
    bool compute(int offset, const QVector<float> &values, double axisUpper) override;

protected:
    QString fullLabel() const override;
    int fullLabelLines() const override;

private:
    //! Mean, sigma and peak height; each is -1 if there is no fit.
    std::array<float, 3> m_deviceFit{-1.0F, -1.0F, -1.0F};
    int m_noiseHalfWidth;
};

} // namespace Corvale_Qt
