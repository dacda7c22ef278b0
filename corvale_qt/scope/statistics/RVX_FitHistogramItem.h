// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"

#include <memory>

namespace Corvale_Qt {

class RVX_FitHistogramItemPrivate;

//! Base class of the Gaussian fits: draws the fitted curve over the bars and can show the beam energy at the position.
class CORVALE_QT_EXPORT RVX_FitHistogramItem : public RVX_StatisticsHistogramItem
{
public:
    ~RVX_FitHistogramItem() override;

    void attach(QwtPlot *plot) override;
    void detach() override;
    void toggleMLFC(bool enable) override;
    void upload_MLFC_calibration_table(std::vector<double> *table) override;
    QString label() const override;

    /*! Returns the root of the summed squared residuals of the fit, divided by the largest bar; NaN if all bars are 0.
        Returns 0 without full statistics and if the last compute() found no Gaussian. */
    double residualNoise() const;

protected:
    //! Creates the item as RVX_StatisticsHistogramItem does, with a curve in the same colour.
    RVX_FitHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                         const QString &title,
                         const QColor &color,
                         bool fullStatistics);

    //! Sets residualNoise(). Call it before take(), which writes the label.
    void setResidualNoise(double noise);
    void showFit(int offset) override;
    //! Returns the label of a result with full statistics.
    virtual QString fullLabel() const;
    //! Returns the number of lines of fullLabel().
    virtual int fullLabelLines() const;

private:
    QString energyText() const;

    Q_DECLARE_PRIVATE(RVX_FitHistogramItem)
    const std::unique_ptr<RVX_FitHistogramItemPrivate> d_ptr;
};

} // namespace Corvale_Qt
