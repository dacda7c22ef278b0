// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/CanvasColors_p.h"
#include "corvale_qt/scope/ScopeMarkerItem_p.h"

#include <qwt_painter.h>
#include <qwt_scale_map.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

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
    drawLabelAt(painter, place);
}

void ScopeMarkerItem::drawLabelAt(QPainter *painter, const QRectF &place) const
{
    const QwtText text = label();
    QBrush ground = text.backgroundBrush();
    // White that shines through the ground would take the contrast from the letters.
    if (hasWhiteCanvas(plot())) {
        QColor opaque = ground.color();
        opaque.setAlpha(255);
        ground.setColor(opaque);
    }
    painter->save();
    painter->setPen(text.borderPen());
    painter->setBrush(ground);
    QwtPainter::drawRect(painter, place);
    painter->setFont(text.font());
    painter->setPen(text.color());
    m_letters.draw(*painter, place.topLeft(), text.text());
    painter->restore();
}

void ScopeMarkerItem::drawLabel(QPainter *, const QRectF &, const QPointF &) const { }

bool ScopeMarkerItem::hasLabel() const
{
    return !label().isEmpty();
}

//! Returns the size of the label, which is measured anew only if its text or font has changed.
QSizeF ScopeMarkerItem::labelSize() const
{
    const QwtText text = label();
    if (text.text() != m_measured.text() || text.font() != m_measured.font()) {
        m_measured = text;
        m_size = text.textSize();
    }
    return m_size;
}

QRectF ScopeMarkerItem::labelPlace(const QwtScaleMap &xMap, const QRectF &canvas) const
{
    const QSizeF size = labelSize();
    const double line = xMap.transform(xValue());
    const double left =
        labelAlignment() & Qt::AlignLeft ? line - spacing() - size.width() : line + spacing() + 1.0;
    const double rightmost = canvas.right() - spacing() - size.width();
    const double inside = std::max(std::min(left, rightmost), canvas.left());
    // On whole pixels, so that the letters do not move in their box while the chart moves.
    return QRectF(QPointF(std::round(inside), canvas.top() + spacing()), size);
}

} // namespace Corvale_Qt
