// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/LimitLines_p.h"

#include <qwt_scale_map.h>

#include <QPainter>

#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr double kZ = 30.0; // above the curves, below the markers
const QColor kShadow(0, 0, 0, 150); // a line is to be seen on a yellow bar as well

QPen penOf(bool isAlarm)
{
    // The canvas is black in every palette. The dashes tell warnings from alarms without the colour.
    return isAlarm ? QPen(QColor(255, 80, 70), 1.0, Qt::SolidLine, Qt::FlatCap)
                   : QPen(QColor(255, 190, 60), 1.0, Qt::DashLine, Qt::FlatCap);
}

} // namespace

LimitLines::LimitLines()
{
    setZ(kZ);
    // Limits far from the readings must not shrink them.
    setItemAttribute(QwtPlotItem::AutoScale, false);
    setItemAttribute(QwtPlotItem::Legend, false);
}

void LimitLines::add(const Line &line)
{
    if (!m_lines.contains(line))
        m_lines.append(line);
}

void LimitLines::draw(QPainter *painter,
                      const QwtScaleMap &xMap,
                      const QwtScaleMap &yMap,
                      const QRectF &canvasRect) const
{
    for (const Line &line : m_lines) {
        const double y = std::round(yMap.transform(line.y));
        if (!(y >= canvasRect.top() && y <= canvasRect.bottom()))
            continue;
        const bool isWhole = !line.x.isValid();
        const double left = isWhole ? canvasRect.left() : xMap.transform(line.x.minValue());
        const double right = isWhole ? canvasRect.right() : xMap.transform(line.x.maxValue());
        const QLineF shape(std::round(left), y, std::round(right), y);
        painter->setPen(QPen(kShadow, 3.0, Qt::SolidLine, Qt::FlatCap));
        painter->drawLine(shape);
        painter->setPen(penOf(line.isAlarm));
        painter->drawLine(shape);
    }
}

} // namespace Corvale_Qt
