// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/PixelCover_p.h"

#include <QImage>

namespace Corvale_Qt {

namespace {

constexpr int bitsInWord = 64;

//! Where the bits of a word lie that begins anywhere in a row of words: in two of them.
struct Shift
{
    explicit Shift(int pixel)
        : word(pixel / bitsInWord)
        , bits(pixel % bitsInWord)
    {
    }

    quint64 firstPart(quint64 value) const { return value << bits; }
    //! Shifts twice, since no word can be shifted by all of its bits.
    quint64 secondPart(quint64 value) const { return (value >> 1) >> (bitsInWord - 1 - bits); }

    int word;
    int bits;
};

} // namespace

PixelMask::PixelMask(const QImage &image, int leastAlpha)
    : size(image.size())
    , wordsInRow((size.width() + bitsInWord - 1) / bitsInWord)
    , words(std::size_t(wordsInRow) * std::size_t(size.height()))
{
    for (int y = 0; y < size.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        quint64 *row = words.data() + std::ptrdiff_t(y) * wordsInRow;
        for (int x = 0; x < size.width(); ++x) {
            if (qAlpha(pixels[x]) >= leastAlpha)
                row[x / bitsInWord] |= quint64(1) << (x % bitsInWord);
        }
    }
}

PixelCover::PixelCover(const QSize &canvas)
    : m_canvas(canvas.expandedTo(QSize(0, 0)))
    , m_wordsInRow(m_canvas.width() / bitsInWord + 2) // a word may begin at the last pixel
    , m_words(std::size_t(m_wordsInRow) * std::size_t(m_canvas.height()))
{
}

void PixelCover::add(const PixelMask &mask, const QPointF &place)
{
    if (!contains(mask, place))
        return;
    const Shift shift(int(place.x()));
    quint64 *row = m_words.data() + std::ptrdiff_t(place.y()) * m_wordsInRow + shift.word;
    const quint64 *words = mask.words.data();
    for (int y = 0; y < mask.size.height(); ++y, row += m_wordsInRow, words += mask.wordsInRow) {
        for (int i = 0; i < mask.wordsInRow; ++i) {
            row[i] |= shift.firstPart(words[i]);
            row[i + 1] |= shift.secondPart(words[i]);
        }
    }
}

bool PixelCover::hides(const PixelMask &mask, const QPointF &place) const
{
    if (!contains(mask, place))
        return false;
    const Shift shift(int(place.x()));
    const quint64 *row = m_words.data() + std::ptrdiff_t(place.y()) * m_wordsInRow + shift.word;
    const quint64 *words = mask.words.data();
    for (int y = 0; y < mask.size.height(); ++y, row += m_wordsInRow, words += mask.wordsInRow) {
        for (int i = 0; i < mask.wordsInRow; ++i) {
            if ((shift.firstPart(words[i]) & ~row[i]) || (shift.secondPart(words[i]) & ~row[i + 1]))
                return false;
        }
    }
    return true;
}

bool PixelCover::contains(const PixelMask &mask, const QPointF &place) const
{
    return place.x() >= 0 && place.y() >= 0 && place.x() + mask.size.width() <= m_canvas.width()
        && place.y() + mask.size.height() <= m_canvas.height();
}

} // namespace Corvale_Qt
