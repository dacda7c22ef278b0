// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QImage>
#include <QVector>

#include <algorithm>

class QLine;
class QPainter;

namespace Corvale_Qt {

/*! A transparent picture for vertical runs of opaque pixels. To stay in the processor's cache it is small: one byte for each
    pixel, the number of its colour. It is stored column by column, so that the pixels of a run are neighbours. */
class RunImage
{
public:
    //! Sets the size and removes all pixels and colours.
    void reset(const QSize &size);

    //! Returns the number of an opaque colour for addRun() and addLines(), or 0 if there are 255 others already.
    int numberOf(QRgb color);

    //! Fills the pixels \a top to \a bottom of a column, which must lie inside the picture.
    void addRun(int column, int top, int bottom, int color)
    {
        uchar *const pixels = pixelsOf(column);
        std::fill(pixels + top, pixels + bottom + 1, uchar(color));
        m_used.unite({top, bottom});
    }

    //! Draws lines with their end pixels, moved by \a offset. They may leave the picture.
    void addLines(const QVector<QLine> &lines, const QPoint &offset, int color);

    //! Draws the picture with its top left corner \a at a pixel of the painter's coordinates.
    void draw(QPainter *painter, const QPoint &at);

private:
    //! Consecutive rows, both ends included.
    struct Rows
    {
        int top;
        int bottom;

        int count() const { return std::max(bottom - top + 1, 0); }
        void unite(const Rows &other)
        {
            top = std::min(top, other.top);
            bottom = std::max(bottom, other.bottom);
        }
    };
    static constexpr Rows none{1 << 30, -1};

    uchar *pixelsOf(int column) { return m_pixels.data() + qptrdiff(column) * m_size.height(); }
    //! Finds which rows of each column the lines may touch.
    void findReach(const QVector<QLine> &lines, const QPoint &offset);
    //! Moves the pixels of the lines into the picture.
    void carryOver(int color);
    //! Converts some rows to the form that painters draw.
    void fillBand(const Rows &rows);

    QSize m_size;
    QVector<uchar> m_pixels;
    //! Colours by their number; number 0 is transparent.
    QVector<QRgb> m_colors;
    //! The rows that contain all pixels.
    Rows m_used = none;
    //! Scratch: a band of rows as ARGB32.
    QImage m_band;
    //! Scratch: lines as a painter draws them, before they are moved into the picture; transparent otherwise.
    QImage m_lines;
    //! Scratch: the rows of each column that the lines may touch.
    QVector<Rows> m_reach;
};

} // namespace Corvale_Qt
