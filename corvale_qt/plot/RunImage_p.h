// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QImage>
#include <QVector>

#include <algorithm>

class QLine;
class QPainter;

namespace Corvale_Qt {

class PixelRuns;

/*! A transparent picture for vertical runs of opaque pixels. To stay in the processor's cache it is small: one byte for each
    pixel, the number of its colour. It is stored column by column, so that the pixels of a run are neighbours. */
class RunImage
{
public:
    //! How many colours a picture may have.
    static constexpr int mostColors = 255;
    //! Consecutive columns, both ends included, counted from the left edge.
    struct Columns
    {
        int first;
        int last;

        bool contains(int column) const { return column >= first && column <= last; }
    };

    //! Sets the size and removes all pixels and colours. The origin is 0 again.
    void reset(const QSize &size);
    /*! Sets which column of the memory is the one at the left edge, less than the width. What has been drawn moves along, and what
        leaves the picture at one edge is there again at the other, where it must be cleared. */
    void setOrigin(int column) { m_origin = column; }
    //! Removes the pixels of columns inside the picture.
    void clear(const Columns &columns);

    //! Returns the number of an opaque colour for add(), or 0 if there are mostColors others already.
    int numberOf(QRgb color);

    //! Draws the pixels of runs and lines, moved by \a offset, that lie in \a part. The runs may not leave the picture.
    void add(const PixelRuns &runs, const QPoint &offset, int color, const Columns &part);
    //! Draws runs and lines, moved by \a offset. The runs may not leave the picture.
    void add(const PixelRuns &runs, const QPoint &offset, int color)
    {
        add(runs, offset, color, {0, m_size.width() - 1});
    }

    /*! Draws the picture with its top left corner \a at a pixel of the painter's coordinates. A picture that is drawn again without a
        reset() is kept in the form that painters draw, and only columns that have changed since are converted. */
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

    //! Returns where a column lies in the memory, which the picture enters at its origin and goes on with at the beginning.
    int stored(int column) const
    {
        const int place = column + m_origin;
        return place < m_size.width() ? place : place - m_size.width();
    }
    //! Returns the pixels of a column that is stored at a place.
    uchar *pixelsAt(int place) { return m_pixels.data() + qptrdiff(place) * m_size.height(); }
    uchar *pixelsOf(int column) { return pixelsAt(stored(column)); }
    //! Notes that columns are no longer those of the kept picture.
    void noteChanged(const Columns &columns);
    void
    addLines(const QVector<QLine> &lines, const QPoint &offset, int color, const Columns &part);
    // These do the steps of addLines().
    //! Draws lines as a painter does.
    void drawLines(const QVector<QLine> &lines, const QPoint &offset, const Columns &part);
    //! Finds which rows of each column the lines may touch.
    void findReach(const QVector<QLine> &lines, const QPoint &offset, const Columns &part);
    //! Moves the pixels of the lines into the picture.
    void carryOver(int color, const Columns &part);
    void drawBands(QPainter *painter, const QPoint &at);
    void drawKept(QPainter *painter, const QPoint &at);
    //! Brings the kept picture up to date.
    void updateKept();
    //! Converts some rows to the form that painters draw.
    void fillBand(const Rows &rows);
    //! Converts rows of at most tileSide columns, whose pixels begin at \a columns, to lines of colours at \a to.
    void convert(const uchar *const *columns, int count, int rows, QRgb *to, int stride) const;

    QSize m_size;
    int m_origin = 0;
    QVector<uchar> m_pixels;
    //! Colours by their number; number 0 is transparent.
    QVector<QRgb> m_colors;
    //! The rows that contain all pixels.
    Rows m_used = none;
    //! Whether the picture was drawn since reset().
    bool m_isDrawn = false;
    //! The picture as ARGB32, with the columns where they are stored; empty until it is drawn for the second time.
    QImage m_kept;
    //! Whether the kept picture is one of this picture, and at which places it is behind.
    bool m_isKept = false;
    QVector<bool> m_isBehind;
    //! Scratch: a band of rows as ARGB32.
    QImage m_band;
    //! Scratch: lines as a painter draws them, where their columns are stored; transparent otherwise.
    QImage m_lines;
    //! Scratch: the rows of each column that the lines may touch.
    QVector<Rows> m_reach;
};

} // namespace Corvale_Qt
