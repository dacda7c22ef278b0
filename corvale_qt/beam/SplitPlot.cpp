// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/PlotAxis_p.h"
#include "corvale_qt/beam/PlotRange_p.h"
#include "corvale_qt/beam/SplitPlot_p.h"
#include "corvale_qt/models/RVXPlotColors.h"

#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

//! Half of the bar's height, in the units of the left axis.
constexpr double kHalfBar = 0.12;
constexpr double kHalfHeight = 0.2;

} // namespace

SplitItem::SplitItem(const QColor &color)
    : m_color(color)
{
    setItemAttribute(AutoScale, true);
}

int SplitItem::rtti() const
{
    return QwtPlotItem::Rtti_PlotUserItem;
}

QRectF SplitItem::boundingRect() const
{
    if (!isPlottable(m_value))
        return QRectF(1.0, 1.0, -2.0, -2.0); // Qwt's "nothing to show"
    const double reach = std::abs(m_value);
    return QRectF(-reach, -kHalfHeight, 2 * reach, 2 * kHalfHeight);
}

void SplitItem::draw(QPainter *painter,
                     const QwtScaleMap &xMap,
                     const QwtScaleMap &yMap,
                     const QRectF &canvasRect) const
{
    const double zero = xMap.transform(0);
    double end = zero;
    if (isPlottable(m_value)) {
        // Clamped: a bar beyond the axis ends at the edge.
        end = std::clamp(xMap.transform(m_value), canvasRect.left(), canvasRect.right());
        const QRectF bar(QPointF(zero, yMap.transform(kHalfBar)),
                         QPointF(end, yMap.transform(-kHalfBar)));
        painter->fillRect(bar.normalized(), m_color);
    }
    painter->setPen(QPen(QColor(200, 200, 200), 0));
    painter->drawLine(QPointF(zero, canvasRect.top()), QPointF(zero, canvasRect.bottom()));
    drawText(painter, canvasRect, zero, end);
}

void SplitItem::drawText(QPainter *painter, const QRectF &canvasRect, double zero, double end) const
{
    const QString text =
        std::isnan(m_value) ? QStringLiteral("NaN") : QString::number(m_value, 'g', 4);
    QFont font = painter->font();
    font.setPixelSize(std::clamp(static_cast<int>(canvasRect.height() * 0.22), 9, 48));
    painter->setFont(font);
    const QFontMetricsF metrics(font);
    const QSizeF size(metrics.horizontalAdvance(text), metrics.height());
    const double gap = metrics.averageCharWidth();

    // Beyond the bar's end; on the bar where there is no room beyond it.
    double left = end < zero ? end - gap - size.width() : end + gap;
    const bool fits = left >= canvasRect.left() && left + size.width() <= canvasRect.right();
    if (!fits)
        left = end < zero ? end + gap : end - gap - size.width();
    left = std::clamp(left,
                      canvasRect.left(),
                      std::max(canvasRect.left(), canvasRect.right() - size.width()));
    const QPointF topLeft(left, canvasRect.center().y() - size.height() / 2);
    const bool onBar = !fits && std::abs(end - zero) > size.width() + gap;
    painter->setPen(onBar && qGray(m_color.rgb()) > 100 ? Qt::black : Qt::white);
    painter->drawText(QRectF(topLeft, size).adjusted(0, 0, 1, 0),
                      Qt::AlignCenter | Qt::TextDontClip,
                      text);
}

SplitPlot::SplitPlot(int index, QWidget *parent)
    : QwtPlot(parent)
    , m_item(new SplitItem(RVXPlotColors::color(index)))
{
    auto *canvas = new QwtPlotCanvas(this);
    canvas->setFrameStyle(QFrame::NoFrame);
    setCanvas(canvas);
    setCanvasBackground(Qt::black);
    enableAxis(xBottom, true);
    enableAxis(yLeft, false);
    styleAxis(this, xBottom);
    setAxisScale(yLeft, -kHalfHeight, kHalfHeight, 0.1);
    setAxisScale(xBottom, -1.0, 1.0, 0.1);
    m_item->attach(this);
    replot();
}

SplitPlot::~SplitPlot() = default;

void SplitPlot::show(double value)
{
    m_item->setValue(value);
    replot();
}

} // namespace Corvale_Qt
