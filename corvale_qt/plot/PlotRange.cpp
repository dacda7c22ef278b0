// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PlotRange_p.h"

#include <qwt_plot.h>

#include <QLoggingCategory>

#include <cmath>

namespace Corvale_Qt {

namespace {

Q_LOGGING_CATEGORY(plotLog, "corvale.plot")

constexpr double kLargestPlottable = 1e200;
// The smallest fraction of the range, 0.0001, has ten steps; even these are normal numbers.
constexpr double kSmallestSpan = 1e-290;

} // namespace

bool isPlottable(double value)
{
    return std::abs(value) <= kLargestPlottable; // false for a NaN
}

bool PlotRange::set(double newMin, double newMax, const char *setter)
{
    if (!isPlottable(newMin) || !isPlottable(newMax) || !(newMax - newMin > kSmallestSpan)) {
        qCDebug(plotLog) << setter << "ignored: no range from" << newMin << "to" << newMax;
        return false;
    }
    min = newMin;
    max = newMax;
    return true;
}

void PlotRange::apply(QwtPlot *plot, int axis, double fraction) const
{
    const double low = fraction * min;
    const double high = fraction * max;
    plot->setAxisScale(axis, low, high, (high - low) / 10);
}

} // namespace Corvale_Qt
