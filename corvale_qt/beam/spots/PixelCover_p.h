// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QPointF>
#include <QSize>

#include <vector>

class QImage;

namespace Corvale_Qt {

//! Some of the pixels of a picture, one bit for each.
struct PixelMask
{
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
    explicit PixelCover(const QSize &canvas);

    //! Covers the pixels of \a mask with its top left corner at \a place, a whole pixel.
    void add(const PixelMask &mask, const QPointF &place);
    //! Returns whether all pixels of a mask are covered.
    bool hides(const PixelMask &mask, const QPointF &place) const;

private:
    bool contains(const PixelMask &mask, const QPointF &place) const;

    const QSize m_canvas;
    const int m_wordsInRow;
    std::vector<quint64> m_words;
};

} // namespace Corvale_Qt
