// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/SampleRing_p.h"

#include <limits>
#include <vector>

namespace Corvale_Qt {

class PlotDataReader;

/*! Exponential moving averages of the channels of a plot model, one average for each sample row:

        A(1) = x(1),   A(r) = (1 - 1/N) A(r - 1) + (1/N) x(r)

    A reading that is not finite stands in its row as it is, and the average continues from the last finite one, which
    is remembered when its row is dropped at the front. The first finite reading of a channel starts its average.
    With N = 1 the averages are the readings, and none are kept.

    Rows and columns count from 1. If the source's memory and the ring are both contiguous, running values go straight
    from one to the other; every number equals that of the recurrence computed cell by cell, to the last bit. */
class RunningAverages
{
public:
    //! Sets N, at least 1, for rows that are computed from now on.
    void setLength(int length);
    int length() const { return m_length; }
    //! Removes all channels.
    void reset() { m_channels.clear(); }
    //! Removes all rows; channels and room stay.
    void clear();

    /*! Inserts \a count channels without rows before the one at \a column, with room for \a capacity rows. The other
        channels keep their averages. */
    void insertChannels(int column, int count, int capacity);
    //! Removes \a count channels from \a column on.
    void removeChannels(int column, int count);
    //! Moves the \a count channels from \a column on to before the channel that is now at \a before.
    void moveChannels(int column, int count, int before);

    int channels() const { return int(m_channels.size()); }
    //! Returns whether \a row of \a column has an average.
    bool has(int row, int column) const;
    //! Returns the average of a row for which has() is true.
    double value(int row, int column) const { return channel(column).ring[row - 1]; }
    //! Returns all averages of \a column, oldest first.
    const SampleRing &column(int column) const { return channel(column).ring; }
    //! Finds averages in memory; see LibraryBulkData::columnSpans().
    bool spans(int column, int firstRow, int count, RingSpans &spans) const;

    //! Drops the oldest \a rows rows; the others keep their averages.
    void dropOldest(int column, qint64 rows);
    //! Drops oldest rows until \a dropped rows are dropped in all, counted as LibraryBulkData::droppedRows() counts.
    void followDrops(int column, qint64 dropped);
    //! Makes followDrops() count from \a dropped: the averages have no row that the source has dropped before.
    void startFollowing(int column, qint64 dropped) { channel(column).followedDrops = dropped; }
    //! Removes the rows after row \a rows.
    void truncate(int column, int rows);
    /*! Computes columns \a firstColumn to \a lastColumn from row \a from to row \a rows, the source's last. N must be greater
        than 1. */
    void update(const PlotDataReader &source, int firstColumn, int lastColumn, int from, int rows);

private:
    struct Channel
    {
        double before(int row) const;

        SampleRing ring;
        mutable BlockRanges ranges;
        // The number of averages ever computed, without those that were removed at the end.
        qint64 taken = 0;
        qint64 followedDrops = 0;
        // The last finite average of all rows, and of the rows dropped at the front; NaN if there is none.
        double newest = std::numeric_limits<double>::quiet_NaN();
        double dropped = std::numeric_limits<double>::quiet_NaN();
        // The first row that the current update computes.
        int start = 1;
    };

    Channel &channel(int column) { return m_channels[size_t(column - 1)]; }
    const Channel &channel(int column) const { return m_channels[size_t(column - 1)]; }
    void prepare(Channel &channel, int from, int rows);
    //! Adds or removes rows at the end, so that \a rows remain.
    static void resize(Channel &channel, int rows);
    bool startsTogether(int column, int lastColumn) const;
    template<int Lanes>
    void average(const PlotDataReader &source, int firstColumn, int from, int rows);
    template<int Lanes>
    void averageStretch(const PlotDataReader &source,
                        int firstColumn,
                        int row,
                        int count,
                        double (&running)[Lanes]);
    template<int Lanes>
    bool averageInPlace(const PlotDataReader &source,
                        int firstColumn,
                        int row,
                        int count,
                        double (&running)[Lanes]);
    template<int Lanes>
    void averageByCopy(const PlotDataReader &source,
                       int firstColumn,
                       int row,
                       int count,
                       double (&running)[Lanes]);

    double
    averageWithGaps(const PlotDataReader &source, int column, int row, int count, double running);

    std::vector<Channel> m_channels;
    int m_length = 1;
};

} // namespace Corvale_Qt
