// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RingPictures_p.h"

#include <QPainter>
#include <QtMath>

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
    painter.setBrush(Qt::NoBrush);
    for (const QPen &pen : {QPen(Qt::black, edgeWidth), QPen(color, ringWidth)}) {
        painter.setPen(pen);
        painter.drawEllipse(centre, radius, radius);
    }
}

} // namespace

RingPictures::RingPictures(const QColor &color, double pixelRatio)
    : m_color(color)
    , m_pixelRatio(pixelRatio)
{
}

SelectionRing RingPictures::ringOf(int row, const QPointF &centre, double radius) const
{
    radius = qMax(radius, smallestRing);
    if (radius > largestPicture)
        return {row, 0, QRect()};
    const double steps = stepsInPixel * m_pixelRatio;
    const int size = qRound(radius * steps);
    const int x = qRound(centre.x() * steps), y = qRound(centre.y() * steps);
    // Pictures begin at whole pixels of the device.
    const int left = qFloor(double(x) / stepsInPixel), top = qFloor(double(y) / stepsInPixel);
    const int half = qCeil((size / steps + edgeWidth) * m_pixelRatio) + 1;
    const int place = (x - stepsInPixel * left) * stepsInPixel + y - stepsInPixel * top;
    return {row,
            size * stepsInPixel * stepsInPixel + place,
            QRect(left - half, top - half, 2 * half + 1, 2 * half + 1)};
}

const RingPictures::Picture &RingPictures::picture(const SelectionRing &ring)
{
    const auto known = m_pictures.find(ring.shape);
    if (known != m_pictures.end())
        return known->second;
    if (m_pictures.size() >= mostPictures)
        m_pictures.clear();
    return m_pictures.emplace(ring.shape, make(ring)).first->second;
}

RingPictures::Picture RingPictures::make(const SelectionRing &ring) const
{
    const double steps = stepsInPixel * m_pixelRatio;
    const int size = ring.shape / (stepsInPixel * stepsInPixel);
    const int place = ring.shape % (stepsInPixel * stepsInPixel);
    const int middle = ring.pixels.width() / 2 * stepsInPixel;
    const QPoint centre(middle + place / stepsInPixel, middle + place % stepsInPixel);
    QImage image(ring.pixels.size(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(m_pixelRatio);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        drawRing(painter, QPointF(centre) / steps, size / steps, m_color);
    }
    image.setDevicePixelRatio(1.0);
    return {image, PixelMask(image, 1), PixelMask(image, 255)};
}

void RingPictures::drawLarge(QPainter &painter, const QPointF &centre, double radius) const
{
    painter.save();
    painter.scale(m_pixelRatio, m_pixelRatio);
    drawRing(painter, centre, radius, m_color);
    painter.restore();
}

} // namespace Corvale_Qt
