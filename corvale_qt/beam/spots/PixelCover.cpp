// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/PixelCover_p.h"

#include <QImage>
#include <QtEndian>

#include <algorithm>

namespace Corvale_Qt {

namespace {

constexpr int bitsInByte = 8;
constexpr int bytesInWord = PixelMask::pixelsInWord / bitsInByte;

quint64 wordAt(const uchar *bytes)
{
    return qFromLittleEndian<quint64>(bytes);
}

} // namespace

PixelMask::PixelMask(const QImage &image, int leastAlpha)
    : size(image.size())
    , wordsInRow((size.width() + pixelsInWord - 1) / pixelsInWord)
    , words(std::size_t(wordsInRow) * std::size_t(size.height()))
{
    for (int y = 0; y < size.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        quint64 *row = words.data() + std::ptrdiff_t(y) * wordsInRow;
        for (int x = 0; x < size.width(); ++x) {
            if (qAlpha(pixels[x]) >= leastAlpha)
                row[x / pixelsInWord] |= quint64(1) << (x % pixelsInWord);
        }
    }
}

PixelCover::PixelCover(const QSize &canvas, const QVector<QRect> &parts)
    : m_canvas(canvas.expandedTo(QSize(0, 0)))
    , m_bytesInRow(m_canvas.width() / bitsInByte + 1)
    // A word may begin at the last pixel.
    , m_bytes(std::size_t(m_bytesInRow) * std::size_t(m_canvas.height()) + sizeof(quint64), 0xff)
{
    for (const QRect &part : parts) {
        const int bytes = (part.width() + bitsInByte - 1) / bitsInByte;
        for (int y = part.top(); y <= part.bottom(); ++y)
            std::fill_n(m_bytes.begin() + byteOf({part.left(), y}), bytes, uchar(0));
    }
}

void PixelCover::add(const PixelMask &mask, const QPoint &place)
{
    if (!contains(mask, place))
        return;
    const int shift = place.x() % bitsInByte;
    uchar *row = m_bytes.data() + byteOf(place);
    const quint64 *word = mask.words.data();
    for (int y = 0; y < mask.size.height(); ++y, row += m_bytesInRow) {
        uchar *bytes = row;
        for (int i = 0; i < mask.wordsInRow; ++i, bytes += bytesInWord)
            qToLittleEndian<quint64>(wordAt(bytes) | *word++ << shift, bytes);
    }
}

bool PixelCover::hides(const PixelMask &mask, const QPoint &place) const
{
    if (!contains(mask, place))
        return false;
    const int shift = place.x() % bitsInByte;
    const uchar *row = m_bytes.data() + byteOf(place);
    const quint64 *word = mask.words.data();
    for (int y = 0; y < mask.size.height(); ++y, row += m_bytesInRow) {
        const uchar *bytes = row;
        for (int i = 0; i < mask.wordsInRow; ++i, bytes += bytesInWord) {
            if (*word++ << shift & ~wordAt(bytes))
                return false;
        }
    }
    return true;
}

bool PixelCover::contains(const PixelMask &mask, const QPoint &place) const
{
    return place.x() >= 0 && place.y() >= 0 && place.x() + mask.size.width() <= m_canvas.width()
        && place.y() + mask.size.height() <= m_canvas.height();
}

std::ptrdiff_t PixelCover::byteOf(const QPoint &pixel) const
{
    return std::ptrdiff_t(pixel.y()) * m_bytesInRow + pixel.x() / bitsInByte;
}

} // namespace Corvale_Qt
