// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXSeriesData.h"

#include <algorithm>
#include <cmath>

/*! Returns the rectangle around the points of \a series, point by point. Points that are not finite are skipped; a
    coordinate of the first that is not finite counts as 0. */
inline QRectF boundsByHand(const Corvale_Qt::RVXSeriesData &series)
{
    const auto orZero = [](double number) { return std::isfinite(number) ? number : 0.0; };
    QPointF low(orZero(series.sample(0).x()), orZero(series.sample(0).y()));
    QPointF high = low;
    for (size_t i = 0; i < series.size(); ++i) {
        const QPointF point = series.sample(i);
        if (!std::isfinite(point.x()) || !std::isfinite(point.y()))
            continue;
        low = {std::min(low.x(), point.x()), std::min(low.y(), point.y())};
        high = {std::max(high.x(), point.x()), std::max(high.y(), point.y())};
    }
    return QRectF(low.x(), low.y(), high.x() - low.x(), high.y() - low.y());
}
