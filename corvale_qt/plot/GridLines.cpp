// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/GridLines_p.h"
#include "corvale_qt/plot/PixelPen_p.h"

#include <qwt_scale_div.h>
#include <qwt_scale_map.h>

#include <QPaintEngine>
#include <QPainter>

#include <cmath>

namespace Corvale_Qt {

namespace {

//! Returns whether lines of a pen cover the pixels of a line of areas that are one device pixel wide. Leaves the pen with the painter.
bool coversPixels(QPainter *painter, const QPen &pen)
{
    painter->setPen(pen);
    const bool isThin = !isFiner(*painter) || pen.isCosmetic();
    return isThin && pen.style() == Qt::SolidLine && paintsThinOpaque(*painter);
}

//! Calls fillAt(pixel) for each tick of the kinds of one size that lies from \a first to \a last pixel.
template<typename FillAt>
void forEachTick(const QwtScaleDiv &scale,
                 bool isMajor,
                 const QwtScaleMap &map,
                 double first,
                 double last,
                 FillAt fillAt)
{
    const auto fillAll = [&](int kind) {
        const QList<double> ticks = scale.ticks(kind);
        for (const double tick : ticks) {
            const double pixel = qRound(map.transform(tick));
            if (pixel >= first && pixel <= last)
                fillAt(pixel);
        }
    };
    if (isMajor) {
        fillAll(QwtScaleDiv::MajorTick);
    } else {
        fillAll(QwtScaleDiv::MinorTick);
        fillAll(QwtScaleDiv::MediumTick);
    }
}

} // namespace

void GridLines::draw(QPainter *painter,
                     const QwtScaleMap &xMap,
                     const QwtScaleMap &yMap,
                     const QRectF &canvasRect) const
{
    const double ratio = painter->device()->devicePixelRatioF();
    const bool isOfPixels =
        painter->paintEngine()->type() == QPaintEngine::Raster && ratio == std::floor(ratio);
    if (!isOfPixels || !coversPixels(painter, minorPen()) || !coversPixels(painter, majorPen())) {
        QwtPlotGrid::draw(painter, xMap, yMap, canvasRect);
        return;
    }
    // Qwt draws from the first to the last pixel, the last one not included.
    const QRectF area = canvasRect.adjusted(0.0, 0.0, -1.0, -1.0);
    fill(painter, xMap, yMap, area, false);
    fill(painter, xMap, yMap, area, true);
}

void GridLines::fill(QPainter *painter,
                     const QwtScaleMap &xMap,
                     const QwtScaleMap &yMap,
                     const QRectF &area,
                     bool isMajor) const
{
    const double pixel = 1.0 / painter->device()->devicePixelRatioF();
    const QColor color = isMajor ? majorPen().color() : minorPen().color();
    if (xEnabled() && (isMajor || xMinEnabled()))
        forEachTick(xScaleDiv(), isMajor, xMap, area.left(), area.right(), [&](double x) {
            painter->fillRect(QRectF(x, area.top(), pixel, area.height()), color);
        });
    if (yEnabled() && (isMajor || yMinEnabled()))
        forEachTick(yScaleDiv(), isMajor, yMap, area.top(), area.bottom(), [&](double y) {
            painter->fillRect(QRectF(area.left(), y, area.width(), pixel), color);
        });
}

} // namespace Corvale_Qt
