// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/SampleRing_p.h"

#include <limits>
#include <vector>

namespace Corvale_Qt {

class PlotColumnReader;

/*! Exponential moving averages of the channels of a plot model, one for each sample row:

        A(1) = x(1),   A(r) = (1 - 1/N) A(r - 1) + (1/N) x(r)

    A reading that is not finite is shown as it is in its own row, and the average goes on from the last finite one,
    which is remembered when its row leaves at the front. The first finite reading of a channel starts its average.

    Rows count from 1, columns too. The running values stay in registers and go from the source's memory straight to
    their own where both lie in one piece; the numbers are those of the recurrence, computed cell by cell, to the last bit. */
class RunningAverages
{
public:
    //! N, at least 1. Takes effect on rows that are computed from now on.
    void setLength(int length) { m_length = length; }
    int length() const { return m_length; }
    //! Empty averages of \a channels channels, with room for \a capacity rows.
    void reset(int channels, int capacity);
    //! Drops all rows, keeps channels and room.
    void clear();

    /*! Empty averages of \a count more channels, the first of them at \a column; the others keep theirs. \a count and
        \a capacity as in reset(). */
    void insertChannels(int column, int count, int capacity);
    void removeChannels(int column, int count);
    //! The \a count channels from \a column on move to before the one that is at \a before now.
    void moveChannels(int column, int count, int before);

    int channels() const { return int(m_channels.size()); }
    bool has(int row, int column) const;
    //! The average of a row that there is.
    double value(int row, int column) const { return channel(column).ring[row - 1]; }
    const SampleRing &column(int column) const { return channel(column).ring; }
    //! As PlotColumns::spans().
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const;

    //! The oldest rows leave; the others keep their averages.
    void dropOldest(int column, qint64 rows);
    /*! The same up to a total of \a dropped rows, counted as PlotColumns::droppedRows() counts. */
    void followDrops(int column, qint64 dropped);
    //! The source has dropped \a dropped rows so far, and the averages know of all of them.
    void startFollowing(int column, qint64 dropped) { channel(column).followedDrops = dropped; }
    //! Rows after \a rows leave.
    void truncate(int column, int rows);
    //! Computes \a firstColumn to \a lastColumn from row \a from on, up to row \a rows, the source's last.
    void
    update(const PlotColumnReader &source, int firstColumn, int lastColumn, int from, int rows);

private:
    struct Channel
    {
        double before(int row) const;

        SampleRing ring;
        mutable BlockRanges ranges;
        // How many averages there ever were, less those that were taken back.
        qint64 taken = 0;
        qint64 followedDrops = 0;
        // The last finite average of all rows, and of those that left at the front; NaN where there is none.
        double newest = std::numeric_limits<double>::quiet_NaN();
        double dropped = std::numeric_limits<double>::quiet_NaN();
        // The row from which on the present update computes.
        int start = 1;
    };

    Channel &channel(int column) { return m_channels[size_t(column - 1)]; }
    const Channel &channel(int column) const { return m_channels[size_t(column - 1)]; }
    void prepare(Channel &channel, int from, int rows);
    //! Rows come, or leave, at the end.
    static void resize(Channel &channel, int rows);
    bool startsTogether(int column, int lastColumn) const;
    void copy(const PlotColumnReader &source, int column, int from, int rows);
    template<int Lanes>
    void average(const PlotColumnReader &source, int firstColumn, int from, int rows);
    template<int Lanes>
    void averageStretch(const PlotColumnReader &source,
                        int firstColumn,
                        int row,
                        int count,
                        double (&running)[Lanes]);
    template<int Lanes>
    bool averageInPlace(const PlotColumnReader &source,
                        int firstColumn,
                        int row,
                        int count,
                        double (&running)[Lanes]);
    template<int Lanes>
    void averageByCopy(const PlotColumnReader &source,
                       int firstColumn,
                       int row,
                       int count,
                       double (&running)[Lanes]);

    double
    averageWithGaps(const PlotColumnReader &source, int column, int row, int count, double running);

    std::vector<Channel> m_channels;
    int m_length = 1;
};

} // namespace Corvale_Qt
