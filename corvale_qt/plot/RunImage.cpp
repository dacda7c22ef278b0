// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/RunImage_p.h"

#include <QLine>
#include <QPainter>

namespace Corvale_Qt {

namespace {

// Rows and columns are exchanged in squares of this side: as many pixels of four bytes as a cache line holds.
constexpr int tileSide = 16;

QRgb *bitsOf(QImage &image)
{
    return reinterpret_cast<QRgb *>(image.bits());
}

int strideOf(const QImage &image)
{
    return image.bytesPerLine() / int(sizeof(QRgb));
}

} // namespace

void RunImage::reset(const QSize &size)
{
    if (size == m_size) {
        uchar *pixels = m_pixels.data();
        for (int column = 0; column < m_size.width(); ++column, pixels += m_size.height())
            std::fill_n(pixels + m_used.top, m_used.count(), uchar(0));
    } else {
        m_size = size;
        m_pixels.fill(0, size.width() * size.height());
    }
    m_used = none;
    m_colors.resize(0);
    m_colors.append(0);
}

int RunImage::numberOf(QRgb color)
{
    const int known = m_colors.lastIndexOf(color);
    if (known > 0)
        return known;
    constexpr int mostColors = 256;
    if (m_colors.size() >= mostColors)
        return 0;
    m_colors.append(color);
    return m_colors.size() - 1;
}

void RunImage::addLines(const QVector<QLine> &lines, const QPoint &offset, int color)
{
    if (lines.isEmpty())
        return;
    if (m_lines.size() != m_size) {
        m_lines = QImage(m_size, QImage::Format_ARGB32_Premultiplied);
        m_lines.fill(Qt::transparent);
    }
    QPainter painter(&m_lines);
    painter.translate(offset);
    painter.setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawLines(lines);
    painter.end();
    findReach(lines, offset);
    carryOver(color);
}

// Rows are collected for each column, so that moving the pixels costs no more than the area that the lines cover.
void RunImage::findReach(const QVector<QLine> &lines, const QPoint &offset)
{
    m_reach.fill(none, m_size.width());
    // Clipped before they are moved, since adding the offset to an end far outside could overflow.
    const QRect inside(-offset, m_size);
    for (const QLine &line : lines) {
        const auto x = std::minmax({line.x1(), line.x2()});
        const auto y = std::minmax({line.y1(), line.y2()});
        const Rows rows{std::max(y.first, inside.top()) + offset.y(),
                        std::min(y.second, inside.bottom()) + offset.y()};
        if (rows.count() == 0)
            continue;
        const int last = std::min(x.second, inside.right()) + offset.x();
        for (int column = std::max(x.first, inside.left()) + offset.x(); column <= last; ++column)
            m_reach[column].unite(rows);
    }
}

void RunImage::carryOver(int color)
{
    QRgb *const lines = bitsOf(m_lines);
    const int stride = strideOf(m_lines);
    for (int column = 0; column < m_size.width(); ++column) {
        const Rows rows = m_reach[column];
        uchar *const to = pixelsOf(column);
        for (int row = rows.top; row <= rows.bottom; ++row) {
            QRgb &pixel = lines[row * stride + column];
            if (pixel != 0)
                to[row] = uchar(color);
            pixel = 0;
        }
        m_used.unite(rows);
    }
}

void RunImage::draw(QPainter *painter, const QPoint &at)
{
    // A painter centres lines on their coordinates. On a finer device, half of a line's width lies before them.
    const bool finer = painter->device()->devicePixelRatioF() > 1.0;
    const QPointF corner = finer ? at - QPointF(0.5, 0.5) : QPointF(at);
    // Drawn in bands, since ARGB32 is four times as large and a band is still in the cache when it is drawn. If the edges of
    // bands may fall between device pixels, the whole picture is one band.
    const int height = finer ? m_used.count() : tileSide;
    if (m_band.width() != m_size.width() || m_band.height() < height)
        m_band = QImage(m_size.width(), height, QImage::Format_ARGB32_Premultiplied);
    for (int top = m_used.top; top <= m_used.bottom; top += height) {
        const Rows rows{top, std::min(top + height - 1, m_used.bottom)};
        fillBand(rows);
        painter->drawImage(corner + QPointF(0, top),
                           m_band,
                           QRectF(0, 0, m_size.width(), rows.count()));
    }
}

void RunImage::fillBand(const Rows &rows)
{
    QRgb *const band = bitsOf(m_band);
    const int stride = strideOf(m_band);
    const QRgb *const colors = m_colors.constData();
    const uchar *const pixels = m_pixels.constData() + rows.top;
    for (int top = 0; top < rows.count(); top += tileSide) {
        const int bottom = std::min(top + tileSide, rows.count());
        for (int left = 0; left < m_size.width(); left += tileSide) {
            const int right = std::min(left + tileSide, m_size.width());
            for (int row = top; row < bottom; ++row) {
                for (int column = left; column < right; ++column)
                    band[row * stride + column] = colors[pixels[column * m_size.height() + row]];
            }
        }
    }
}

} // namespace Corvale_Qt
