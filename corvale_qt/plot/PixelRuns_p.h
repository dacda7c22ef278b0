// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_map.h>

#include <QLine>
#include <QRect>
#include <QVector>

#include <algorithm>

namespace Corvale_Qt {

//! The pixel that Qwt puts a coordinate on, for any finite coordinate: far outside stays far outside.
inline int pixelOf(double coordinate)
{
    // Far beyond any canvas, and one short of where a neighbour overflows.
    constexpr double limit = 2147483646.0;
    return qRound(std::min(std::max(coordinate, -limit), limit));
}

inline int pixelOf(const QwtScaleMap &map, double value)
{
    return pixelOf(map.transform(value));
}

/*! Turns a curve's samples, on whole pixels and in their order, into one vertical run of pixels for each pixel
    column, however many samples lie in it.

    The picture is that of a line of its own for every two neighbouring samples, each with its end pixels, to
    the last pixel. Qt draws such a line between neighbouring columns as a run in the left one that ends short
    of the right one's pixel; so a column's run reaches from its lowest to its highest sample and on towards
    the next column's first. Samples further apart than one column are joined by lines. */
class PixelRuns
{
public:
    //! Pixels \a top to \a bottom of a column.
    struct Run
    {
        int column;
        int top;
        int bottom;
    };

    //! Forgets what it has; what lies outside of \a clip is left out from now on.
    void begin(const QRect &clip);
    //! A missing sample: nothing joins what comes to what was.
    void gap();
    void addPoint(int column, int y) { addColumn(column, y, y, y, y); }
    //! Samples that lie in one column and are joined to each other, the first and the last of them named.
    void addColumn(int column, int first, int least, int greatest, int last);
    void end() { gap(); }

    //! All of them inside the clip.
    const QVector<Run> &runs() const { return m_runs; }
    //! Between columns that a run does not join: not neighbours, or far apart in height. With their end pixels.
    const QVector<QLine> &joints() const { return m_joints; }
    //! The two together.
    QVector<QLine> lines() const;

private:
    void joinTo(int column, int y);
    void flush();

    QRect m_clip;
    QVector<Run> m_runs;
    QVector<QLine> m_joints;

    bool m_open = false;
    int m_column = 0;
    int m_least = 0;
    int m_greatest = 0;
    int m_last = 0;
};

} // namespace Corvale_Qt
