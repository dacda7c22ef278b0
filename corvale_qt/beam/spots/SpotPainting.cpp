// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotPainting_p.h"

#include <QPainter>
#include <QRadialGradient>

#include <cmath>

namespace Corvale_Qt {

namespace {

bool isNarrow(const GaussianRadialGradientBrush &brush)
{
    return brush.boundingRect().width() / 2 * stepsAcrossTheMap < narrowSteps;
}

//! Returns the brush of a narrow spot, a Gaussian that ends with the brush's rectangle.
QBrush narrowBrush(const GaussianRadialGradientBrush &brush)
{
    QRadialGradient gradient(brush.center(), brush.boundingRect().width() / 2);
    QColor color = brush.gradient()->stops().constFirst().second;
    const double amplitude = color.alphaF();
    for (int step = 0; step < narrowSteps; ++step) {
        const double inSigma = spotReach * step / narrowSteps;
        color.setAlphaF(amplitude * std::exp(-0.5 * inSigma * inSigma));
        gradient.setColorAt(double(step) / narrowSteps, color);
    }
    gradient.setColorAt(1.0, Qt::transparent);
    return gradient;
}

//! Returns the row of the last drawable spot before \a row, or -1.
int drawableBefore(const SpotList &spots, int row)
{
    do
        --row;
    while (row >= 0 && !isDrawable(spots.at(row)));
    return row;
}

} // namespace

bool SpotStyle::operator==(const SpotStyle &other) const
{
    return pixels == other.pixels && pixelRatio == other.pixelRatio && bounds == other.bounds
        && fullScaleDose == other.fullScaleDose && color == other.color
        && background == other.background;
}

double spotOpacity(float dose, float fullScaleDose)
{
    const float cap = 1.5F * fullScaleDose;
    if (dose == 0.0F)
        return 0.0;
    if (dose >= cap)
        return 1.0;
    if (dose < 0.0F)
        return 0.95;
    return double(dose / cap) * 0.9 + 0.1;
}

QColor spotColor(float dose, const SpotStyle &style)
{
    return dose < 0.0F ? QColor(Qt::blue) : style.color;
}

std::unique_ptr<GaussianRadialGradientBrush> createBrush(const SpotMapView::MapSpot &spot,
                                                         const SpotStyle &style)
{
    const QPointF centre = toUnitSquare(style.bounds, QPointF(spot.x, spot.y));
    return std::unique_ptr<GaussianRadialGradientBrush>(
        GaussianRadialGradientBrush::create(centre,
                                            spotColor(spot.dose, style),
                                            spotOpacity(spot.dose, style.fullScaleDose),
                                            spot.sigma / style.bounds.width()));
}

void drawSpots(QPainter &painter, const SpotList &spots, int first, const SpotStyle &style)
{
    if (style.bounds.isEmpty())
        return;
    painter.save();
    painter.scale(style.pixels.width(), style.pixels.height());
    for (int row = first; row < spots.size(); ++row) {
        if (!isDrawable(spots.at(row)) || spots.at(row).dose == 0.0F)
            continue;
        const auto brush = createBrush(spots.at(row), style);
        if (isNarrow(*brush)) {
            painter.setClipping(false);
            painter.fillRect(brush->boundingRect(), narrowBrush(*brush));
            continue;
        }
        // Qt stretches the gradient over the filled rectangle. So the whole unit square is filled, and clipped to
        // the spot; filling only the spot's rectangle would shrink the spot.
        painter.setClipRect(brush->boundingRect());
        painter.fillRect(QRectF(0.0, 0.0, 1.0, 1.0), *brush);
    }
    painter.restore();
}

void drawPath(QPainter &painter, const SpotList &spots, int first, const SpotStyle &style)
{
    if (style.bounds.isEmpty())
        return;
    const auto pixelOf = [&style](const SpotMapView::MapSpot &spot) {
        const QPointF unit = toUnitSquare(style.bounds, QPointF(spot.x, spot.y));
        return QPointF(unit.x() * style.pixels.width(), unit.y() * style.pixels.height());
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(style.color, style.pixelRatio));
    int from = drawableBefore(spots, first);
    for (int row = first; row < spots.size(); ++row) {
        if (!isDrawable(spots.at(row)))
            continue;
        if (from >= 0)
            painter.drawLine(pixelOf(spots.at(from)), pixelOf(spots.at(row)));
        from = row;
    }
    painter.restore();
}

} // namespace Corvale_Qt
