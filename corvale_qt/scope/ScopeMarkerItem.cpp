// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/CanvasColors_p.h"
#include "corvale_qt/scope/ScopeMarkerItem_p.h"

#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <algorithm>

namespace Corvale_Qt {

void ScopeMarkerItem::draw(QPainter *painter,
                           const QwtScaleMap &xMap,
                           const QwtScaleMap &yMap,
                           const QRectF &canvas) const
{
    QwtPlotMarker::draw(painter, xMap, yMap, canvas);
    if (!hasLabel())
        return;
    QRectF place = labelPlace(xMap, canvas);
    if (m_other && m_other->plot() == plot() && m_other->hasLabel()) {
        const QRectF taken = m_other->labelPlace(xMap, canvas);
        if (taken.intersects(place))
            place.moveTop(taken.bottom() + spacing());
    }
    QwtText text = label();
    // White that shines through the ground would take the contrast from the letters.
    if (hasWhiteCanvas(plot())) {
        QBrush ground = text.backgroundBrush();
        QColor opaque = ground.color();
        opaque.setAlpha(255);
        ground.setColor(opaque);
        text.setBackgroundBrush(ground);
    }
    text.draw(painter, place);
}

void ScopeMarkerItem::drawLabel(QPainter *, const QRectF &, const QPointF &) const { }

bool ScopeMarkerItem::hasLabel() const
{
    return !label().isEmpty();
}

QRectF ScopeMarkerItem::labelPlace(const QwtScaleMap &xMap, const QRectF &canvas) const
{
    const QSizeF size = label().textSize();
    const double line = xMap.transform(xValue());
    const double left =
        labelAlignment() & Qt::AlignLeft ? line - spacing() - size.width() : line + spacing() + 1.0;
    const double rightmost = canvas.right() - spacing() - size.width();
    const double inside = std::max(std::min(left, rightmost), canvas.left());
    return QRectF(QPointF(inside, canvas.top() + spacing()), size);
}

} // namespace Corvale_Qt
