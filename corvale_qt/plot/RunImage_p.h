// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QImage>
#include <QVector>

#include <algorithm>

class QLine;
class QPainter;

namespace Corvale_Qt {

/*! A transparent picture for vertical runs of opaque pixels. It is kept small, so that it stays near the processor:
    a byte a pixel, the number of its colour; and column by column, so that a run lies together. */
class RunImage
{
public:
    //! Makes it empty, without pixels and without colours.
    void reset(const QSize &size);

    //! The number of an opaque colour, to add with; 0 where there are too many colours already.
    int numberOf(QRgb colour);

    //! Pixels \a top to \a bottom of a column, all of them inside.
    void addRun(int column, int top, int bottom, int colour)
    {
        uchar *const pixels = m_pixels.data() + column * m_size.height();
        std::fill(pixels + top, pixels + bottom + 1, uchar(colour));
        m_used.unite({top, bottom});
    }

    //! Lines, moved by \a offset, as a painter draws them, each with its end pixels; they may leave the picture.
    void addLines(const QVector<QLine> &lines, const QPoint &offset, int colour);

    //! Puts it onto pixels of the painter's device, its corner \a at.
    void draw(QPainter *painter, const QPoint &at);

private:
    //! Neighbouring rows, both ends included.
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

    void findReach(const QVector<QLine> &lines, const QPoint &offset);
    void carryOver(int colour);
    void fillBand(const Rows &rows);

    QSize m_size;
    QVector<uchar> m_pixels;
    //! By number; the first is no colour.
    QVector<QRgb> m_colours;
    //! All that was added lies in them.
    Rows m_used = none;
    //! Some rows as a painter takes them.
    QImage m_band;
    //! Lines on their way in, row by row; transparent but for that.
    QImage m_lines;
    //! Which rows of a column the lines may have touched.
    QVector<Rows> m_reach;
};

} // namespace Corvale_Qt
