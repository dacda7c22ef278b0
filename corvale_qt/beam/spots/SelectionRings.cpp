// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SelectionRings_p.h"

#include <QPainter>

#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr double smallestRing = 3.0; // pixels
constexpr double edgeWidth =
    4.0; // of the dark edge, on which the ring is visible on a map of any colours
constexpr double ringWidth = 2.0;
//! A ring lies within an eighth of a device pixel of its place, and is as exact in its size.
constexpr int stepsInPixel = 4;
//! A larger ring is drawn by itself: there are few, and their pictures would be large.
constexpr double largestPicture = 100.0;
//! Spots of many sizes would fill the memory with pictures.
constexpr std::size_t mostPictures = 500;

void drawRing(QPainter &painter, const QPointF &centre, double radius, const QColor &color)
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QPen &pen : {QPen(Qt::black, edgeWidth), QPen(color, ringWidth)}) {
        painter.setPen(pen);
        painter.drawEllipse(centre, radius, radius);
    }
}

} // namespace

SelectionRings::SelectionRings(QPainter &painter, const QColor &color, double pixelRatio)
    : m_painter(painter)
    , m_color(color)
    , m_pixelRatio(pixelRatio)
{
}

void SelectionRings::add(const QPointF &centre, double radius)
{
    radius = qMax(radius, smallestRing);
    if (radius > largestPicture) {
        draw();
        drawRing(m_painter, centre, radius, m_color);
        return;
    }
    const double steps = stepsInPixel * m_pixelRatio;
    const auto size = quint64(std::lround(radius * steps));
    const auto x = std::llround(centre.x() * steps), y = std::llround(centre.y() * steps);
    // Pictures begin at whole pixels of the device.
    const double left = std::floor(double(x) / stepsInPixel),
                 top = std::floor(double(y) / stepsInPixel);
    const double placeX = double(x) - stepsInPixel * left, placeY = double(y) - stepsInPixel * top;
    const int half = int(std::ceil((double(size) / steps + edgeWidth) * m_pixelRatio)) + 1;
    const quint64 key = (size * stepsInPixel + quint64(placeX)) * stepsInPixel + quint64(placeY);
    if (m_pictures.size() >= mostPictures) {
        draw();
        m_pictures.clear();
    }
    Picture &ring = m_pictures[key];
    if (ring.image.isNull())
        ring = picture(QPointF(half * stepsInPixel + placeX, half * stepsInPixel + placeY) / steps,
                       double(size) / steps,
                       2 * half + 1);
    m_rings.push_back({QPointF(left - half, top - half), &ring});
}

void SelectionRings::draw()
{
    const std::vector<Ring> visible = visibleRings();
    for (auto ring = visible.rbegin(); ring != visible.rend(); ++ring)
        m_painter.drawImage(ring->place / m_pixelRatio, ring->picture->image);
    m_rings.clear();
}

std::vector<SelectionRings::Ring> SelectionRings::visibleRings() const
{
    const QPaintDevice &canvas = *m_painter.device();
    PixelCover cover((QSizeF(canvas.width(), canvas.height()) * m_pixelRatio).toSize());
    std::vector<Ring> rings;
    for (auto ring = m_rings.rbegin(); ring != m_rings.rend(); ++ring) {
        if (cover.hides(ring->picture->visible, ring->place))
            continue;
        cover.add(ring->picture->opaque, ring->place);
        rings.push_back(*ring);
    }
    return rings;
}

SelectionRings::Picture
SelectionRings::picture(const QPointF &centre, double radius, int side) const
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(m_pixelRatio);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        drawRing(painter, centre, radius, m_color);
    }
    return {image, PixelMask(image, 1), PixelMask(image, 255)};
}

} // namespace Corvale_Qt
