// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_CoGHistogramItem.h"

#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/numerics/ProfileRoutines_p.h"
#include "corvale_qt/scope/statistics/StatisticsLabels_p.h"
#include "corvale_qt/scope/statistics/StatisticsParameters_p.h"

#include <QCoreApplication>

namespace Corvale_Qt {

RVX_CoGHistogramItem::RVX_CoGHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                           const QVector<double> &parameters,
                                           bool fullStatistics)
    : RVX_StatisticsHistogramItem(
        axisWidget,
        QCoreApplication::translate("Corvale_Qt::RVX_CoGHistogramItem", "Center of Gravity"),
        QColor(113, 255, 113),
        fullStatistics)
    , m_mode(toRounded(parameters.value(0)) == 0 ? Mode::Threshold : Mode::Window)
    , m_value(m_mode == Mode::Threshold ? parameters.value(1) : parameters.value(2, 1024.0))
{
}

bool RVX_CoGHistogramItem::compute(int offset, const QVector<float> &values, double axisUpper)
{
    ProfileFit fit(values);
    const FitStatus status = m_mode == Mode::Threshold
        ? computeCentreOfGravityAbove(fit, float(m_value))
        : computeCentreOfGravityInWindow(fit, toTruncated(m_value));
    return take(offset, fit, status, axisUpper);
}

QString RVX_CoGHistogramItem::label() const
{
    const int lines = hasFullStatistics() ? 4 : 2;
    if (!isComputed())
        return StatisticsLabels::empty(lines);
    if (status() != FitStatus::Ok)
        return StatisticsLabels::withVerdict(StatisticsLabels::error(statusMessage(), lines),
                                             *this);
    if (!hasFullStatistics())
        return StatisticsLabels::withVerdict(StatisticsLabels::shortForm(*this), *this);
    return StatisticsLabels::withVerdict(StatisticsLabels::moments(*this), *this);
}

} // namespace Corvale_Qt
