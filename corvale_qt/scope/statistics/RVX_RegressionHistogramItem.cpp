// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_RegressionHistogramItem.h"

#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileNoise.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"
#include "corvale_qt/scope/statistics/StatisticsParameters_p.h"

#include <QCoreApplication>

namespace Corvale_Qt {

class RVX_RegressionHistogramItemPrivate
{
public:
    explicit RVX_RegressionHistogramItemPrivate(const QVector<double> &parameters)
    {
        if (parameters.size() >= 4) {
            options.thresholdFraction = float(parameters[0]);
            options.halfWidth = toTruncated(parameters[1]);
            minimumPeak = parameters[2];
            minimumSum = parameters[3];
        }
        options.weightPower = toRounded(parameters.value(4, 2.0));
        chiSquareHalfWidth = toRounded(parameters.value(5, 5.0));
    }

    RegressionOptions<float>
        options; //!< but for the smallest peak, which depends on the unit of the bars
    double minimumPeak = 1.0e-15; //!< in the base unit
    double minimumSum = 1.0e-14; //!< in the base unit
    int chiSquareHalfWidth = 5;
};

RVX_RegressionHistogramItem::RVX_RegressionHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                                         const QVector<double> &parameters,
                                                         bool fullStatistics)
    : RVX_FitHistogramItem(
        axisWidget,
        QCoreApplication::translate("Corvale_Qt::RVX_RegressionHistogramItem", "Gaussian Fit"),
        QColor(255, 171, 251),
        fullStatistics)
    , d_ptr(new RVX_RegressionHistogramItemPrivate(parameters))
{
}

RVX_RegressionHistogramItem::~RVX_RegressionHistogramItem() = default;

bool RVX_RegressionHistogramItem::compute(int offset,
                                          const QVector<float> &values,
                                          double axisUpper)
{
    Q_D(RVX_RegressionHistogramItem);
    // Relative to the largest bar: beyond this, the misfit outweighs the peak.
    constexpr double largestNoise = 1.0;

    ProfileFit fit(values);
    RegressionOptions<float> options = d->options;
    options.minimumPeak = float(d->minimumPeak * limitFactor());
    FitStatus status = computeRegression(fit, options);
    if (status == FitStatus::Ok && fit.sum < float(d->minimumSum * limitFactor()))
        status = FitStatus::SignalBelowThreshold;
    double noise = 0.0;
    if (status == FitStatus::Ok && hasFullStatistics()) {
        noise = double(Corvale_Qt::residualNoise(fit, d->chiSquareHalfWidth));
        if (!(noise <= largestNoise))
            status = FitStatus::NoiseAboveThreshold;
    }
    setResidualNoise(noise);
    return take(offset, fit, status, axisUpper);
}

} // namespace Corvale_Qt
