// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"

#include <memory>

namespace Corvale_Qt {

class RVX_FitHistogramItemPrivate;

//! What the Gaussian fits have in common: the fitted curve over the bars, and the beam energy at the position.
class CORVALE_QT_EXPORT RVX_FitHistogramItem : public RVX_StatisticsHistogramItem
{
public:
    ~RVX_FitHistogramItem() override;

    void attach(QwtPlot *plot) override;
    void detach() override;
    void toggleMLFC(bool enable) override;
    void upload_MLFC_calibration_table(std::vector<double> *table) override;
    QString label() const override;

    //! Root of the summed squares of what the fit leaves over, relative to the largest bar; 0 without full statistics.
    double residualNoise() const;

protected:
    RVX_FitHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                         const QString &title,
                         const QColor &color,
                         bool fullStatistics);

    //! For takes that come next.
    void setResidualNoise(double noise);
    void showFit(int offset) override;
    //! The label of a result with full statistics.
    virtual QString fullLabel() const;
    //! How many lines that has.
    virtual int fullLabelLines() const;

private:
    QString energyText() const;

    const std::unique_ptr<RVX_FitHistogramItemPrivate> d;
};

} // namespace Corvale_Qt
