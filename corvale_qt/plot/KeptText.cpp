// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/KeptText_p.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr int kFlags =
    int(Qt::AlignLeft | Qt::AlignTop) | Qt::TextDontClip | Qt::TextForceLeftToRight;

//! Returns whether a picture lies on device pixels if it is drawn at \a point, so that it is copied and not scaled.
bool isOnPixels(const QPainter &painter, const QPointF &point)
{
    const QTransform &transform = painter.deviceTransform();
    const QPointF place = transform.map(point);
    const double ratio = painter.device()->devicePixelRatioF();
    return transform.type() <= QTransform::TxScale && transform.m11() == ratio
        && transform.m22() == ratio
        && place == QPointF(std::round(place.x()), std::round(place.y()));
}

bool blendsPlainly(const QPainter &painter)
{
    return painter.compositionMode() == QPainter::CompositionMode_SourceOver
        && painter.opacity() == 1.0;
}

bool isGrey(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto *const row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (!std::all_of(row, row + image.width(), qIsGray))
            return false;
    }
    return true;
}

} // namespace

bool KeptText::Key::operator==(const Key &other) const
{
    return text == other.text && isLine == other.isLine && font == other.font
        && color == other.color && direction == other.direction && dpi == other.dpi
        && pixelRatio == other.pixelRatio;
}

void KeptText::Key::write(QPainter &painter, const QPointF &at) const
{
    if (isLine)
        painter.drawText(at, text);
    else
        painter.drawText(QRectF(at, QSizeF()), kFlags, text);
}

//! Returns where letters may be, relative to the place of the text.
QRect KeptText::Key::bounds() const
{
    const QFontMetricsF metrics(font);
    const QRectF letters =
        isLine ? metrics.boundingRect(text) : metrics.boundingRect(QRectF(), kFlags, text);
    constexpr int overhang = 2; // beyond the outlines or the lines
    QRect pixels = letters.toAlignedRect().adjusted(-overhang, -overhang, overhang, overhang);
    pixels.setLeft(
        std::min(pixels.left(), -1)); // at x = 0, Qt draws letters otherwise than elsewhere
    return pixels;
}

void KeptText::draw(QPainter &painter, const QPointF &topLeft, const QString &text)
{
    draw(painter, topLeft, text, false);
}

void KeptText::drawLine(QPainter &painter, const QPointF &baseline, const QString &text)
{
    draw(painter, baseline, text, true);
}

void KeptText::draw(QPainter &painter, const QPointF &at, const QString &text, bool isLine)
{
    const QPaintDevice *const device = painter.device();
    const Key key{text,
                  isLine,
                  painter.font(),
                  painter.pen().color(),
                  painter.layoutDirection(),
                  device->logicalDpiY(),
                  device->devicePixelRatioF()};
    if (!(key == m_key)) {
        m_key = key;
        m_picture = QImage();
        m_timesDrawn = 0;
    }
    // In a vector picture a text stays a text.
    const bool isOfPixels = painter.paintEngine()->type() == QPaintEngine::Raster;
    if (isOfPixels && m_timesDrawn < 2 && m_timesDrawn++ == 1)
        makePicture();
    const QPointF corner = at + m_corner;
    if (isOfPixels && !m_picture.isNull() && isOnPixels(painter, at) && isOnPixels(painter, corner)
        && blendsPlainly(painter))
        painter.drawImage(corner, m_picture);
    else
        m_key.write(painter, at);
}

void KeptText::makePicture()
{
    const QRect bounds = m_key.bounds();
    m_corner = bounds.topLeft();
    // Letters whose edges have colours, for the stripes of a screen, cannot be kept without their ground.
    if (isGrey(pictureOf(bounds.size(), QImage::Format_RGB32, Qt::black, Qt::white)))
        m_picture = pictureOf(bounds.size(),
                              QImage::Format_ARGB32_Premultiplied,
                              Qt::transparent,
                              m_key.color);
}

//! Returns a picture of the letters; null if pictures have another resolution than the painter's device.
QImage KeptText::pictureOf(const QSize &size,
                           QImage::Format format,
                           const QColor &ground,
                           const QColor &color) const
{
    const QSizeF pixels = QSizeF(size) * m_key.pixelRatio;
    QImage picture(int(std::ceil(pixels.width())), int(std::ceil(pixels.height())), format);
    if (picture.isNull() || picture.logicalDpiY() != m_key.dpi)
        return QImage();
    picture.setDevicePixelRatio(m_key.pixelRatio);
    picture.fill(ground);
    QPainter painter(&picture);
    painter.setLayoutDirection(m_key.direction);
    painter.setFont(m_key.font);
    painter.setPen(color);
    m_key.write(painter, -m_corner);
    return picture;
}

} // namespace Corvale_Qt
