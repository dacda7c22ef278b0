// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_map.h>

#include <QLine>
#include <QRect>
#include <QVector>

#include <algorithm>

namespace Corvale_Qt {

//! The largest coordinate of a pixel: one less than the largest int, so that a neighbouring pixel does not overflow.
constexpr double mostPixels = 2147483646.0;

//! Rounds a finite coordinate as Qwt does; a coordinate beyond the range of int is limited to it.
inline int pixelOf(double coordinate)
{
    return qRound(std::min(std::max(coordinate, -mostPixels), mostPixels));
}

//! Returns the pixel of a value on an axis.
inline int pixelOf(const QwtScaleMap &map, double value)
{
    return pixelOf(map.transform(value));
}

/*! Turns a curve's samples, given in whole pixels and in their order, into one vertical run of pixels for each pixel column,
    however many samples lie in the column.

    The picture is equal, pixel for pixel, to one in which every two neighbouring samples are joined by a line with both end
    pixels. Qt draws such a line between neighbouring columns as a run in the left column that ends one pixel before the
    right one. A column's run therefore reaches from its lowest to its highest sample and on towards the next column's first
    sample. Samples that are more than one column apart are joined by lines. */
class PixelRuns
{
public:
    //! The pixels \a top to \a bottom of a column, both included.
    struct Run
    {
        int column;
        int top;
        int bottom;
    };

    //! Removes all runs and lines, and leaves out what lies outside of \a clip from now on.
    void begin(const QRect &clip);
    //! Ends the line at a missing sample; the next sample starts a new one.
    void gap();
    //! Adds the next sample.
    void addPoint(int column, int y) { addColumn(column, y, y, y, y); }
    //! Adds consecutive samples of one column: the y of the first and of the last of them, and their range.
    void addColumn(int column, int first, int least, int greatest, int last);
    //! Completes the last run.
    void end() { gap(); }

    //! Returns the runs, which all lie inside the clip.
    const QVector<Run> &runs() const { return m_runs; }
    /*! Returns the lines, with both end pixels, between columns that no run joins because they are not neighbours or their
        samples are far apart in y. */
    const QVector<QLine> &joints() const { return m_joints; }
    //! Returns the joints and the runs as lines.
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
