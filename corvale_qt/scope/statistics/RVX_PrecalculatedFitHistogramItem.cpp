// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_PrecalculatedFitHistogramItem.h"

#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileNoise.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"
#include "corvale_qt/scope/statistics/StatisticsLabels_p.h"
#include "corvale_qt/scope/statistics/StatisticsParameters_p.h"

#include <QCoreApplication>

namespace Corvale_Qt {

RVX_PrecalculatedFitHistogramItem::RVX_PrecalculatedFitHistogramItem(
    RVX_HistogramItemAxisWidget *axisWidget,
    const QVector<double> &parameters,
    bool fullStatistics)
    : RVX_FitHistogramItem(
        axisWidget,
        QCoreApplication::translate("Corvale_Qt::RVX_PrecalculatedFitHistogramItem",
                                    "Gaussian Fit (Device)"),
        QColor(123, 167, 255),
        fullStatistics)
    , m_noiseHalfWidth(toTruncated(parameters.value(1, 5.0)))
{
}

void RVX_PrecalculatedFitHistogramItem::setDeviceFit(const QVariantList &fits, int group)
{
    for (int i = 0; i < 3; ++i) {
        bool isNumber = false;
        const double entry = fits.value(3 * group + i).toDouble(&isNumber);
        if (!isNumber) {
            m_deviceFit.fill(-1.0F);
            return;
        }
        m_deviceFit[size_t(i)] = float(entry);
    }
}

bool RVX_PrecalculatedFitHistogramItem::usesDeviceFit() const
{
    return true;
}

bool RVX_PrecalculatedFitHistogramItem::compute(int offset,
                                                const QVector<float> &values,
                                                double axisUpper)
{
    ProfileFit fit(values, m_deviceFit[0], m_deviceFit[1], m_deviceFit[2]);
    if (values.isEmpty())
        return take(offset, fit, FitStatus::NotEnoughChannels, axisUpper);
    const FitStatus status = adoptDeviceFit(fit);
    const bool ok = status == FitStatus::Ok;
    setResidualNoise(
        ok && hasFullStatistics() ? double(Corvale_Qt::residualNoise(fit, m_noiseHalfWidth)) : 0.0);
    const QString failure =
        QCoreApplication::translate("Corvale_Qt::RVX_PrecalculatedFitHistogramItem", "Fit failed.");
    return take(offset, fit, status, axisUpper, ok ? QString() : failure);
}

QString RVX_PrecalculatedFitHistogramItem::fullLabel() const
{
    return StatisticsLabels::deviceFit(*this);
}

int RVX_PrecalculatedFitHistogramItem::fullLabelLines() const
{
    return 5;
}

} // namespace Corvale_Qt
