// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/LaidOutText_p.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr double kOverhang = 2.0; // letters may reach beyond their line

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

bool LaidOutText::Key::operator==(const Key &other) const
{
    return text == other.text && font == other.font && color == other.color && dpi == other.dpi
        && pixelRatio == other.pixelRatio;
}

void LaidOutText::draw(QPainter &painter, const QPointF &topLeft, const QString &text)
{
    if (painter.paintEngine()->type() != QPaintEngine::Raster) {
        // In a vector picture a text stays a text.
        const int flags = int(Qt::AlignLeft | Qt::AlignTop) | Qt::TextDontClip;
        painter.drawText(QRectF(topLeft, QSizeF()), flags | Qt::TextForceLeftToRight, text);
        return;
    }
    const QPaintDevice *const device = painter.device();
    const Key key{text,
                  painter.font(),
                  painter.pen().color(),
                  device->logicalDpiY(),
                  device->devicePixelRatioF()};
    if (!(key == m_key)) {
        m_key = key;
        layOut();
    } else if (!std::exchange(m_isDrawn, true)) {
        paintPicture();
    }
    if (!m_picture.isNull() && isOnPixels(painter, topLeft) && blendsPlainly(painter))
        painter.drawImage(topLeft - QPointF(kOverhang, kOverhang), m_picture);
    else
        drawLines(painter, topLeft);
}

void LaidOutText::layOut()
{
    m_lines.clear();
    m_picture = QImage();
    m_isDrawn = false;
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    const double leading = QFontMetricsF(m_key.font).leading();
    double top = 0.0;
    m_size = QSizeF();
    for (const QString &lineText : m_key.text.split(QLatin1Char('\n'))) {
        QStaticText line(lineText);
        line.setTextFormat(Qt::PlainText);
        line.setTextOption(option);
        line.prepare(QTransform(), m_key.font);
        m_lines.append({line, top});
        m_size = m_size.expandedTo({line.size().width(), top + line.size().height()});
        // As Qt places lines: each begins on a whole pixel.
        top = std::ceil(top + line.size().height() + leading);
    }
}

void LaidOutText::drawLines(QPainter &painter, const QPointF &topLeft) const
{
    for (const Line &line : m_lines)
        painter.drawStaticText(topLeft + QPointF(0.0, line.top), line.text);
}

void LaidOutText::paintPicture()
{
    // Letters whose edges have colours, for the stripes of a screen, cannot be kept without their ground.
    if (isGrey(pictureOf(QImage::Format_RGB32, Qt::black, Qt::white)))
        m_picture = pictureOf(QImage::Format_ARGB32_Premultiplied, Qt::transparent, m_key.color);
}

//! Returns a picture of the letters; null if pictures have another resolution than the painter's device.
QImage
LaidOutText::pictureOf(QImage::Format format, const QColor &ground, const QColor &color) const
{
    const QSizeF pixels = (m_size + 2 * QSizeF(kOverhang, kOverhang)) * m_key.pixelRatio;
    QImage picture(int(std::ceil(pixels.width())), int(std::ceil(pixels.height())), format);
    if (picture.isNull() || picture.logicalDpiY() != m_key.dpi)
        return QImage();
    picture.setDevicePixelRatio(m_key.pixelRatio);
    picture.fill(ground);
    QPainter painter(&picture);
    painter.setFont(m_key.font);
    painter.setPen(color);
    drawLines(painter, QPointF(kOverhang, kOverhang));
    return picture;
}

} // namespace Corvale_Qt
