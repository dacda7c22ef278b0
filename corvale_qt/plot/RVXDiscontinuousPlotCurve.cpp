// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/RVXDiscontinuousPlotCurve.h"

#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/plot/CurveLines_p.h"

#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <cmath>

namespace Corvale_Qt {

namespace {

bool isFinite(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool isFinite(const QRectF &rect)
{
    return isFinite(rect.topLeft()) && std::isfinite(rect.width()) && std::isfinite(rect.height());
}

//! Returns the rectangle around the finite samples. It is invalid if there are none, which Qwt takes as nothing to show.
QRectF finiteBounds(const QwtSeriesData<QPointF> &series)
{
    QRectF bounds(1.0, 1.0, -2.0, -2.0);
    for (size_t i = 0; i < series.size(); ++i) {
        const QPointF point = series.sample(i);
        if (!isFinite(point))
            continue;
        if (bounds.width() < 0) {
            bounds = QRectF(point, QSizeF(0, 0));
            continue;
        }
        bounds.setLeft(std::min(bounds.left(), point.x()));
        bounds.setRight(std::max(bounds.right(), point.x()));
        bounds.setTop(std::min(bounds.top(), point.y()));
        bounds.setBottom(std::max(bounds.bottom(), point.y()));
    }
    return bounds;
}

} // namespace

RVXDiscontinuousPlotCurve::RVXDiscontinuousPlotCurve(const QString &title)
    : RVXDiscontinuousPlotCurve(QwtText(title))
{
}

RVXDiscontinuousPlotCurve::RVXDiscontinuousPlotCurve(const QwtText &title)
    : QwtPlotCurve(title)
{
    // Samples may lie far outside of the canvas; clipped in floating point, they do not overflow a painter's integers.
    setPaintAttribute(ClipPolygons, true);
}

RVXDiscontinuousPlotCurve::~RVXDiscontinuousPlotCurve() = default;

QRectF RVXDiscontinuousPlotCurve::boundingRect() const
{
    const QRectF bounds = QwtPlotCurve::boundingRect();
    // Qwt's search fails if the first sample is a NaN or any sample is infinite.
    return isFinite(bounds) || !data() ? bounds : finiteBounds(*data());
}

void RVXDiscontinuousPlotCurve::setLayer(CurveLayer *layer)
{
    m_layer = layer;
}

//! Calls drawRun(first, last) for each uninterrupted sequence of finite samples in from ... to.
template<typename DrawRun>
void RVXDiscontinuousPlotCurve::forEachFiniteRun(int from, int to, DrawRun drawRun) const
{
    int first = from;
    for (int i = from; i <= to; ++i) {
        if (isFinite(sample(i)))
            continue;
        if (i > first)
            drawRun(first, i - 1);
        first = i + 1;
    }
    if (first <= to)
        drawRun(first, to);
}

void RVXDiscontinuousPlotCurve::drawCurve(QPainter *painter,
                                          int style,
                                          const QwtScaleMap &xMap,
                                          const QwtScaleMap &yMap,
                                          const QRectF &canvasRect,
                                          int from,
                                          int to) const
{
    if (style == Lines) {
        drawLines(painter, xMap, yMap, canvasRect, from, to);
        return;
    }
    forEachFiniteRun(from, to, [&](int first, int last) {
        QwtPlotCurve::drawCurve(painter, style, xMap, yMap, canvasRect, first, last);
    });
}

void RVXDiscontinuousPlotCurve::drawLines(QPainter *painter,
                                          const QwtScaleMap &xMap,
                                          const QwtScaleMap &yMap,
                                          const QRectF &canvasRect,
                                          int from,
                                          int to) const
{
    // A layer that is not drawn after the curve, since a host has taken it off the plot, would keep what it gets.
    const bool isDrawnAfter = m_layer && m_layer->plot() == plot() && m_layer->isVisible();
    CurveLayer *const layer = isDrawnAfter ? m_layer : nullptr;
    // Qwt's FilterPoints and MinimizeMemory are ignored, because CurveLines is faster and smaller without them.
    const bool plain = !(testCurveAttribute(Fitted) && curveFitter())
        && (brush().style() == Qt::NoBrush || brush().color().alpha() == 0);
    if (plain) {
        CurveLines lines(painter, xMap, yMap, canvasRect);
        lines.setLayer(layer);
        lines.setOwner(this);
        lines.setClipping(testPaintAttribute(ClipPolygons));
        lines.draw(*data(), from, to);
        return;
    }
    if (layer)
        layer->flush(painter);
    forEachFiniteRun(from, to, [&](int first, int last) {
        QwtPlotCurve::drawLines(painter, xMap, yMap, canvasRect, first, last);
    });
}

void RVXDiscontinuousPlotCurve::drawSymbols(QPainter *painter,
                                            const QwtSymbol &symbol,
                                            const QwtScaleMap &xMap,
                                            const QwtScaleMap &yMap,
                                            const QRectF &canvasRect,
                                            int from,
                                            int to) const
{
    forEachFiniteRun(from, to, [&](int first, int last) {
        QwtPlotCurve::drawSymbols(painter, symbol, xMap, yMap, canvasRect, first, last);
    });
}

} // namespace Corvale_Qt
