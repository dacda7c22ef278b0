// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_GaussabolaHistogramItem.h"

#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileNoise.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"
#include "corvale_qt/scope/statistics/StatisticsParameters_p.h"

#include <QCoreApplication>

namespace Corvale_Qt {

RVX_GaussabolaHistogramItem::RVX_GaussabolaHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                                         const QVector<double> &parameters,
                                                         bool fullStatistics)
    : RVX_FitHistogramItem(
        axisWidget,
        QCoreApplication::translate("Corvale_Qt::RVX_GaussabolaHistogramItem", "Gaussabola Fit"),
        QColor(112, 255, 255),
        fullStatistics)
    , m_minimumPeak(parameters.value(0, 1.0e-15))
    , m_noiseHalfWidth(toTruncated(parameters.value(1, 5.0)))
{
}

bool RVX_GaussabolaHistogramItem::compute(int offset,
                                          const QVector<float> &values,
                                          double axisUpper)
{
    ProfileFit fit(values);
    const FitStatus status = computeGaussabola(fit, float(m_minimumPeak * limitFactor()));
    const bool measured = status == FitStatus::Ok && hasFullStatistics();
    setResidualNoise(measured ? double(Corvale_Qt::residualNoise(fit, m_noiseHalfWidth)) : 0.0);
    return take(offset, fit, status, axisUpper);
}

} // namespace Corvale_Qt
