// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PixelRuns_p.h"
#include "corvale_qt/plot/RunImage_p.h"

#include <QLine>
#include <QPainter>

#include <utility>

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
    m_origin = 0;
    m_used = none;
    m_colors.resize(0);
    m_colors.append(0);
    m_isDrawn = false;
    m_isKept = false;
}

void RunImage::clear(const Columns &columns)
{
    for (int column = columns.first; column <= columns.last; ++column)
        std::fill_n(pixelsOf(column) + m_used.top, m_used.count(), uchar(0));
    noteChanged(columns);
}

void RunImage::noteChanged(const Columns &columns)
{
    for (int column = columns.first; m_isKept && column <= columns.last; ++column)
        m_isBehind[stored(column)] = true;
}

int RunImage::numberOf(QRgb color)
{
    const int known = m_colors.lastIndexOf(color);
    if (known > 0)
        return known;
    if (m_colors.size() > mostColors)
        return 0;
    m_colors.append(color);
    return m_colors.size() - 1;
}

void RunImage::add(const PixelRuns &runs, const QPoint &offset, int color, const Columns &part)
{
    for (const PixelRuns::Run &run : runs.runs()) {
        const int column = run.column + offset.x();
        if (!part.contains(column))
            continue;
        const Rows rows{run.top + offset.y(), run.bottom + offset.y()};
        uchar *const pixels = pixelsOf(column);
        std::fill(pixels + rows.top, pixels + rows.bottom + 1, uchar(color));
        m_used.unite(rows);
    }
    if (!runs.joints().isEmpty())
        addLines(runs.joints(), offset, color, part);
    noteChanged(part);
}

void RunImage::addLines(const QVector<QLine> &lines,
                        const QPoint &offset,
                        int color,
                        const Columns &part)
{
    if (m_lines.size() != m_size) {
        m_lines = QImage(m_size, QImage::Format_ARGB32_Premultiplied);
        m_lines.fill(Qt::transparent);
        m_reach.resize(m_size.width());
    }
    drawLines(lines, offset, part);
    findReach(lines, offset, part);
    carryOver(color, part);
}

// A line is drawn where its columns are stored, since the pixels of a long line that leaves the picture may depend on the place at
// which it is drawn: they are the same wherever the origin is. A line across the end of the memory is drawn at both ends.
void RunImage::drawLines(const QVector<QLine> &lines, const QPoint &offset, const Columns &part)
{
    QPainter painter(&m_lines);
    painter.setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    for (const int left : {m_origin, m_origin - m_size.width()}) {
        const int first = std::max(part.first + left, 0);
        const int last = std::min(part.last + left, m_size.width() - 1);
        if (first > last)
            continue;
        painter.resetTransform();
        painter.setClipRect(first, 0, last - first + 1, m_size.height());
        painter.translate(offset + QPoint(left, 0));
        painter.drawLines(lines);
    }
}

// Rows are collected for each column, so that moving the pixels costs no more than the area that the lines cover.
void RunImage::findReach(const QVector<QLine> &lines, const QPoint &offset, const Columns &part)
{
    std::fill(m_reach.begin() + part.first, m_reach.begin() + part.last + 1, none);
    // Clipped before they are moved, since adding the offset to an end far outside could overflow.
    const QRect inside =
        QRect(part.first, 0, part.last - part.first + 1, m_size.height()).translated(-offset);
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

void RunImage::carryOver(int color, const Columns &part)
{
    QRgb *const lines = bitsOf(m_lines);
    const int stride = strideOf(m_lines);
    for (int column = part.first; column <= part.last; ++column) {
        const Rows rows = m_reach[column];
        uchar *const to = pixelsOf(column);
        for (int row = rows.top; row <= rows.bottom; ++row) {
            QRgb &pixel = lines[row * stride + stored(column)];
            if (pixel != 0)
                to[row] = uchar(color);
            pixel = 0;
        }
        m_used.unite(rows);
    }
}

void RunImage::draw(QPainter *painter, const QPoint &at)
{
    // The parts of a kept picture meet at any column, which would be seen where pixels are not those of the device.
    const bool isByPixels = painter->device()->devicePixelRatioF() <= 1.0
        && painter->combinedTransform().type() <= QTransform::TxTranslate;
    if (std::exchange(m_isDrawn, true) && isByPixels)
        drawKept(painter, at);
    else
        drawBands(painter, at);
}

void RunImage::drawBands(QPainter *painter, const QPoint &at)
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

void RunImage::drawKept(QPainter *painter, const QPoint &at)
{
    updateKept();
    const int beforeEnd = m_size.width() - m_origin;
    const auto drawPart = [&](int column, int place, int count) {
        if (count > 0 && m_used.count() > 0)
            painter->drawImage(QPointF(at + QPoint(column, m_used.top)),
                               m_kept,
                               QRectF(place, m_used.top, count, m_used.count()));
    };
    drawPart(0, m_origin, beforeEnd);
    drawPart(beforeEnd, 0, m_origin);
}

void RunImage::updateKept()
{
    if (!std::exchange(m_isKept, true)) {
        if (m_kept.size() != m_size)
            m_kept = QImage(m_size, QImage::Format_ARGB32_Premultiplied);
        m_isBehind.fill(true, m_size.width());
    }
    QRgb *const picture = bitsOf(m_kept);
    const uchar *columns[tileSide];
    for (int place = 0; place < m_size.width();) {
        int count = 0;
        for (; count < tileSide && place + count < m_size.width() && m_isBehind[place + count];
             ++count) {
            columns[count] = pixelsAt(place + count);
            m_isBehind[place + count] = false;
        }
        if (count > 0)
            convert(columns, count, m_size.height(), picture + place, strideOf(m_kept));
        place += std::max(count, 1);
    }
}

void RunImage::fillBand(const Rows &rows)
{
    QRgb *const band = bitsOf(m_band);
    const int stride = strideOf(m_band);
    const uchar *columns[tileSide];
    for (int top = 0; top < rows.count(); top += tileSide) {
        const int height = std::min(tileSide, rows.count() - top);
        for (int left = 0; left < m_size.width(); left += tileSide) {
            const int count = std::min(tileSide, m_size.width() - left);
            for (int column = 0; column < count; ++column)
                columns[column] = pixelsOf(left + column) + rows.top + top;
            convert(columns, count, height, band + qptrdiff(top) * stride + left, stride);
        }
    }
}

void RunImage::convert(const uchar *const *columns, int count, int rows, QRgb *to, int stride) const
{
    const QRgb *const colors = m_colors.constData();
    for (int row = 0; row < rows; ++row, to += stride) {
        for (int column = 0; column < count; ++column)
            to[column] = colors[columns[column][row]];
    }
}

} // namespace Corvale_Qt
