// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/CanvasColors_p.h"
#include "corvale_qt/plot/LimitLines_p.h"

#include <qwt_scale_map.h>

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace Corvale_Qt {

namespace {

constexpr double kLimitLinesZ = 30.0; // above the curves, below the markers
// A line is to be seen on a bar as well, which is yellow on black and dark on white.
const QColor kShadow(0, 0, 0, 150);
const QColor kShadowOnWhite(255, 255, 255, 200);

// The dashes tell warnings from alarms without the colour.
const QColor kAlarm(255, 80, 70);
const QColor kWarning(255, 190, 60);
constexpr int kDash = 4;
constexpr int kGap = 2;
// Of the picture. Qt begins anew for each repetition, which takes longer than the pixels.
constexpr int kDashes = 256;

//! Returns a brush whose pixels are the dashes of a horizontal line, as those of Qt::DashLine.
QBrush dashes(const QColor &color)
{
    QImage picture(kDashes * (kDash + kGap), 1, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    for (int x = 0; x < picture.width(); ++x) {
        if (x % (kDash + kGap) < kDash)
            picture.setPixelColor(x, 0, color);
    }
    QBrush brush;
    brush.setTextureImage(picture);
    return brush;
}

QColor warningColor(bool isOnWhite)
{
    return isOnWhite ? colorOnWhite(kWarning) : kWarning;
}

const QBrush &warningDashes(bool isOnWhite)
{
    static const QBrush onBlack = dashes(warningColor(false));
    static const QBrush onWhite = dashes(warningColor(true));
    return isOnWhite ? onWhite : onBlack;
}

/*! Draws a limit with its shadow. On pixels areas of their heights are filled, since a pen would blend pixel by pixel, which takes
    many times as long and gives the same picture. */
void drawLimit(QPainter *painter, const QLineF &line, bool isAlarm, bool isOnWhite)
{
    const QColor &shadow = isOnWhite ? kShadowOnWhite : kShadow;
    constexpr double shadowWidth = 3.0;
    if (painter->paintEngine()->type() == QPaintEngine::Raster) {
        const auto area = [&line](double above, double height) {
            return QRectF(line.x1(), line.y1() - above, line.dx(), height);
        };
        if (isAlarm) { // covers what is below
            painter->fillRect(area(1.5, 1.0), shadow);
            painter->fillRect(area(0.5, 1.0), kAlarm);
            painter->fillRect(area(-0.5, 1.0), shadow);
            return;
        }
        painter->fillRect(area(1.5, shadowWidth), shadow);
        painter->setBrushOrigin(area(0.5, 1.0).topLeft());
        painter->fillRect(area(0.5, 1.0), warningDashes(isOnWhite));
        return;
    }
    painter->setPen(QPen(shadow, shadowWidth, Qt::SolidLine, Qt::FlatCap));
    painter->drawLine(line);
    painter->setPen(isAlarm ? QPen(kAlarm, 1.0, Qt::SolidLine, Qt::FlatCap)
                            : QPen(warningColor(isOnWhite), 1.0, Qt::DashLine, Qt::FlatCap));
    painter->drawLine(line);
}

} // namespace

LimitLines::LimitLines()
{
    setZ(kLimitLinesZ);
    // Limits far from the readings must not shrink them.
    setItemAttribute(QwtPlotItem::AutoScale, false);
    setItemAttribute(QwtPlotItem::Legend, false);
}

bool LimitLines::Line::isBelow(const Line &other) const
{
    const auto fields = [](const Line &line) {
        return std::make_tuple(line.y, line.isAlarm, line.x.minValue(), line.x.maxValue());
    };
    return fields(*this) < fields(other);
}

//! Returns the first of the lines, from the lowest on, that is not below another one.
std::vector<int>::const_iterator LimitLines::find(const Line &line) const
{
    return std::lower_bound(m_fromBelow.begin(),
                            m_fromBelow.end(),
                            line,
                            [this](int i, const Line &wanted) {
                                return m_lines[i].isBelow(wanted);
                            });
}

bool LimitLines::contains(const Line &line) const
{
    const auto found = find(line);
    return found != m_fromBelow.end() && !line.isBelow(m_lines[*found]);
}

void LimitLines::add(const Line &line)
{
    if (contains(line))
        return;
    m_fromBelow.insert(find(line), m_lines.size());
    m_lines.append(line);
}

void LimitLines::clear()
{
    m_lines.resize(0);
    m_fromBelow.clear();
}

void LimitLines::draw(QPainter *painter,
                      const QwtScaleMap &xMap,
                      const QwtScaleMap &yMap,
                      const QRectF &canvasRect) const
{
    const bool isOnWhite = hasWhiteCanvas(plot());
    for (const Line &line : m_lines) {
        const double y = std::round(yMap.transform(line.y));
        if (!(y >= canvasRect.top() && y <= canvasRect.bottom()))
            continue;
        const bool isWhole = !line.x.isValid();
        const double left = isWhole ? canvasRect.left() : xMap.transform(line.x.minValue());
        const double right = isWhole ? canvasRect.right() : xMap.transform(line.x.maxValue());
        const QLineF shape(std::round(left), y, std::round(right), y);
        drawLimit(painter, shape, line.isAlarm, isOnWhite);
    }
}

} // namespace Corvale_Qt
