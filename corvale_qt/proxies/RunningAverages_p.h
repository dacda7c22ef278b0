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

#include <QVector>

#include <vector>

namespace Corvale_Qt {

class PlotColumnReader;

/*! Exponential moving averages of the channels of a plot model, one for each sample row:

        A(1) = x(1),   A(r) = (1 - 1/N) A(r - 1) + (1/N) x(r)

    Rows count from 1, columns too. The running values stay in registers and go from the source's memory straight to
    their own where both lie in one piece; the numbers are those of the recurrence, computed cell by cell, to the last bit. */
class RunningAverages
{
public:
    //! N, at least 1. Takes effect on rows that are computed from now on.
    void setLength(int length) { m_length = length; }
    //! Empty averages of \a channels channels, with room for \a capacity rows.
    void reset(int channels, int capacity);
    //! Drops all rows, keeps channels and room.
    void clear();

    int channels() const { return m_rings.size(); }
    bool has(int row, int column) const;
    //! The average of a row that there is.
    double value(int row, int column) const { return m_rings[column - 1][row - 1]; }
    const SampleRing &column(int column) const { return m_rings[column - 1]; }
    //! As PlotColumns::spans().
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const;

    //! The oldest rows leave; the others keep their averages.
    void dropOldest(int column, qint64 rows);
    //! Rows after \a rows leave.
    void truncate(int column, int rows);
    //! Computes \a firstColumn to \a lastColumn from row \a from on, up to row \a rows, the source's last.
    void
    update(const PlotColumnReader &source, int firstColumn, int lastColumn, int from, int rows);

private:
    int prepare(int column, int from, int rows);
    //! Rows come, or leave, at the end.
    void resize(int column, int rows);
    bool startsTogether(int column, int lastColumn) const;
    void copy(const PlotColumnReader &source, int column, int from, int rows);
    template<int Lanes>
    void average(const PlotColumnReader &source, int firstColumn, int from, int rows);
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

    QVector<SampleRing> m_rings;
    // For each channel: ranges of its averages, and how many it ever had, less those that were taken back.
    mutable std::vector<BlockRanges> m_ranges;
    std::vector<qint64> m_taken;
    // For each channel, the row from which on the present update computes.
    QVector<int> m_starts;
    int m_length = 1;
};

} // namespace Corvale_Qt
