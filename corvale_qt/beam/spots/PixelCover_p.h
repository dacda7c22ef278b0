// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QVector>

#include <vector>

class QImage;

namespace Corvale_Qt {

//! Some of the pixels of a picture, one bit for each.
struct PixelMask
{
    //! So many pixels are a word. With up to seven bits before them, as they begin within any byte, they still fit 64 bits.
    static constexpr int pixelsInWord = 56;

    PixelMask() = default;
    //! Holds the pixels of \a image whose alpha is at least \a leastAlpha.
    PixelMask(const QImage &image, int leastAlpha);

    QSize size;
    int wordsInRow = 0;
    std::vector<quint64> words; //!< row by row; the lowest bit is the leftmost pixel
};

/*! The pixels of a canvas that opaque pictures cover, so that what lies below need not be drawn. Pictures that reach beyond the canvas
    cover nothing, and are never hidden. */
class PixelCover
{
public:
    //! Begins with all pixels covered but those of \a parts, whose left edges must be multiples of 8.
    PixelCover(const QSize &canvas, const QVector<QRect> &parts);

    //! Covers the pixels of \a mask with its top left corner at \a place.
    void add(const PixelMask &mask, const QPoint &place);
    //! Returns whether all pixels of a mask are covered.
    bool hides(const PixelMask &mask, const QPoint &place) const;

private:
    bool contains(const PixelMask &mask, const QPoint &place) const;
    //! Returns the place of the byte that holds a pixel.
    std::ptrdiff_t byteOf(const QPoint &pixel) const;

    const QSize m_canvas;
    const int m_bytesInRow;
    std::vector<uchar>
        m_bytes; //!< row by row, eight pixels each; the lowest bit is the leftmost pixel
};

} // namespace Corvale_Qt
