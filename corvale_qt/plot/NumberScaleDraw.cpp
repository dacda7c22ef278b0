// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/NumberScaleDraw_p.h"

#include <qwt_scale_div.h>
#include <qwt_text.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

int axisDigits(const QwtScaleDiv &scaleDiv)
{
    constexpr double fewest = 6;
    constexpr double most = 15; // a double holds no more
    const QList<double> ticks = scaleDiv.ticks(QwtScaleDiv::MajorTick);
    const double step = ticks.size() > 1 ? std::abs(ticks[1] - ticks[0]) : 0.0;
    const double largest =
        std::max(std::abs(scaleDiv.lowerBound()), std::abs(scaleDiv.upperBound()));
    if (!(step > 0.0 && largest > step))
        return int(fewest);
    return int(std::clamp(std::ceil(std::log10(largest / step)) + 2, fewest, most));
}

QwtText NumberScaleDraw::label(double value) const
{
    return QwtText(QString::number(value, 'g', axisDigits(scaleDiv())));
}

void NumberScaleDraw::drawLabel(QPainter *painter, double value) const
{
    // A painter has the application's layout direction; from right to left, it would put the sign behind the number.
    const Qt::LayoutDirection before = painter->layoutDirection();
    painter->setLayoutDirection(Qt::LeftToRight);
    QwtScaleDraw::drawLabel(painter, value);
    painter->setLayoutDirection(before);
}

} // namespace Corvale_Qt
