// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/HighlightRecentDot_p.h"

#include <qwt_scale_map.h>

#include <QPainter>

namespace Corvale_Qt {

namespace {

constexpr double dotRadius = 2.5;
constexpr double recentRadius = 5.0;
const QColor dotColor(60, 60, 60, 110);

void drawInside(QPainter *painter, const QPointF &point, double radius, const QColor &color)
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawEllipse(point, radius, radius);
}

//! Draws a circle for a point outside the canvas, at the nearest place where the whole circle is visible.
void drawAtEdge(QPainter *painter, const QRectF &canvas, const QPointF &point, const QColor &color)
{
    constexpr double lineWidth = 1.5;
    constexpr double margin = recentRadius + lineWidth;
    const QPointF inside(qBound(canvas.left() + margin, point.x(), canvas.right() - margin),
                         qBound(canvas.top() + margin, point.y(), canvas.bottom() - margin));
    painter->setPen(QPen(QColor(color.rgb()), lineWidth));
    painter->setBrush(Qt::NoBrush);
    painter->drawEllipse(inside, recentRadius, recentRadius);
}

} // namespace

HighlightRecentDot::HighlightRecentDot(const QString &title)
    : QwtPlotCurve(title)
    , m_highlightColor(Qt::red)
{
    setStyle(QwtPlotCurve::Dots);
}

void HighlightRecentDot::setHighlightColor(const QColor &color)
{
    m_highlightColor = color;
    itemChanged();
}

void HighlightRecentDot::drawDots(QPainter *painter,
                                  const QwtScaleMap &xMap,
                                  const QwtScaleMap &yMap,
                                  const QRectF &canvasRect,
                                  int from,
                                  int to) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const int newest = int(dataSize()) - 1;
    for (int i = from; i <= to; ++i) {
        const QPointF value = sample(i);
        if (!qIsFinite(value.x()) || !qIsFinite(value.y()))
            continue;
        const QPointF point(xMap.transform(value.x()), yMap.transform(value.y()));
        const bool recent = i == newest;
        const QColor color = recent ? m_highlightColor : dotColor;
        if (canvasRect.contains(point))
            drawInside(painter, point, recent ? recentRadius : dotRadius, color);
        else
            drawAtEdge(painter, canvasRect, point, color);
    }
    painter->restore();
}

} // namespace Corvale_Qt
