// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotGeometry_p.h"

#include <QSizeF>
#include <QtMath>

namespace Corvale_Qt {

namespace {

template<typename Rect>
Rect squareAround(const Rect &rect)
{
    const auto side = qMax(rect.width(), rect.height());
    Rect square(0, 0, side, side);
    square.moveCenter(rect.center());
    return square;
}

//! Returns the pixels that a side loses at each end when its length is multiplied by \a ratio.
int margin(int side, double ratio)
{
    return qFloor(side * (1.0 - ratio) / 2.0 + 0.5);
}

} // namespace

QRect makeSquare(const QRect &rect)
{
    return squareAround(rect);
}

QRectF makeSquare(const QRectF &rect)
{
    return squareAround(rect);
}

QRect pictureRect(const QRect &viewport, const QRectF &bounds)
{
    if (viewport.isEmpty())
        return QRect();
    const double viewRatio = double(viewport.width()) / viewport.height();
    const double mapRatio = bounds.isEmpty() ? 1.0 : bounds.width() / bounds.height();
    if (viewRatio > mapRatio) {
        const int x = margin(viewport.width(), mapRatio / viewRatio);
        return viewport.adjusted(x, 0, -x, 0);
    }
    const int y = margin(viewport.height(), viewRatio / mapRatio);
    return viewport.adjusted(0, y, 0, -y);
}

QPointF toUnitSquare(const QRectF &bounds, const QPointF &point)
{
    return QPointF((point.x() - bounds.left()) / bounds.width(),
                   1.0 - (point.y() - bounds.top()) / bounds.height());
}

QPointF fromUnitSquare(const QRectF &bounds, const QPointF &fraction)
{
    return QPointF(bounds.left() + fraction.x() * bounds.width(),
                   bounds.top() + (1.0 - fraction.y()) * bounds.height());
}

} // namespace Corvale_Qt
