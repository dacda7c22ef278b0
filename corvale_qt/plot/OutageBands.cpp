// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/CanvasColors_p.h"
#include "corvale_qt/plot/OutageBands_p.h"

#include <qwt_scale_map.h>

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

// On a black canvas and on a white one.
const QColor kShade(150, 150, 170, 70);
const QColor kTextOnBlack(190, 190, 205);
const QColor kTextOnWhite(80, 80, 95);
constexpr double kMargin = 4.0; // around the text
constexpr double kOutageBandsZ = 15.0; // between the grid and the curves

} // namespace

OutageBands::OutageBands()
{
    setZ(kOutageBandsZ);
    // It reports no extent, so it does not change automatic scales.
    setItemAttribute(QwtPlotItem::AutoScale, false);
    setItemAttribute(QwtPlotItem::Legend, false);
}

void OutageBands::draw(QPainter *painter,
                       const QwtScaleMap &xMap,
                       const QwtScaleMap & /*yMap*/,
                       const QRectF &canvasRect) const
{
    double covered = canvasRect.left();
    for (const QwtInterval &outage : m_bands) {
        const double ends[] = {xMap.transform(outage.minValue()),
                               xMap.transform(outage.maxValue())};
        const auto [low, high] = std::minmax({ends[0], ends[1]});
        // The shortest outage is one pixel wide; those that share a pixel are drawn once.
        const double left = std::max(std::floor(low), covered);
        const double right =
            std::min(std::max(std::ceil(high), std::floor(low) + 1.0), canvasRect.right() + 1.0);
        if (!(left < right))
            continue;
        covered = right;
        const QRectF band(left, canvasRect.top(), right - left, canvasRect.height());
        painter->fillRect(band, kShade);
        drawText(painter, band);
    }
}

void OutageBands::drawText(QPainter *painter, const QRectF &band) const
{
    const QFontMetricsF metrics(painter->font());
    if (band.width() < metrics.horizontalAdvance(m_text) + 2.0 * kMargin)
        return;
    const bool isOnWhite = hasWhiteCanvas(plot());
    painter->setPen(isOnWhite ? kTextOnWhite : kTextOnBlack);
    painter->drawText(band.adjusted(kMargin, kMargin, -kMargin, -kMargin),
                      Qt::AlignHCenter | Qt::AlignBottom | Qt::TextSingleLine,
                      m_text);
}

} // namespace Corvale_Qt
