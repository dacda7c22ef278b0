// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotPainting_p.h"

#include <QPainter>

namespace Corvale_Qt {

namespace {

double amplitudeOf(float dose, float fullScaleDose)
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

//! The last drawable spot before \a row, or -1.
int drawableBefore(const SpotList &spots, int row)
{
    do
        --row;
    while (row >= 0 && !isDrawable(spots.at(row)));
    return row;
}

} // namespace

bool SpotScene::operator==(const SpotScene &other) const
{
    return pixels == other.pixels && pixelRatio == other.pixelRatio && bounds == other.bounds
        && fullScaleDose == other.fullScaleDose && colour == other.colour
        && background == other.background;
}

std::unique_ptr<GaussianRadialGradientBrush> createBrush(const SpotMapView::MapSpot &spot,
                                                         const SpotScene &scene)
{
    const QPointF centre = toUnitSquare(scene.bounds, QPointF(spot.x, spot.y));
    const QColor colour = spot.dose < 0.0F ? QColor(Qt::blue) : scene.colour;
    return std::unique_ptr<GaussianRadialGradientBrush>(
        GaussianRadialGradientBrush::create(centre,
                                            colour,
                                            amplitudeOf(spot.dose, scene.fullScaleDose),
                                            spot.sigma / scene.bounds.width()));
}

void drawSpots(QPainter &painter, const SpotList &spots, int first, const SpotScene &scene)
{
    if (scene.bounds.isEmpty())
        return;
    painter.save();
    painter.scale(scene.pixels.width(), scene.pixels.height());
    for (int row = first; row < spots.size(); ++row) {
        if (!isDrawable(spots.at(row)) || spots.at(row).dose == 0.0F)
            continue;
        const auto brush = createBrush(spots.at(row), scene);
        // The gradient stretches over what is filled. Filling the whole square, and clipping, puts
        // the spot where it belongs; filling its rectangle would shrink the spot into that.
        painter.setClipRect(brush->boundingRect());
        painter.fillRect(QRectF(0.0, 0.0, 1.0, 1.0), *brush);
    }
    painter.restore();
}

void drawPath(QPainter &painter, const SpotList &spots, int first, const SpotScene &scene)
{
    if (scene.bounds.isEmpty())
        return;
    const auto pixelOf = [&scene](const SpotMapView::MapSpot &spot) {
        const QPointF unit = toUnitSquare(scene.bounds, QPointF(spot.x, spot.y));
        return QPointF(unit.x() * scene.pixels.width(), unit.y() * scene.pixels.height());
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(scene.colour, scene.pixelRatio));
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
