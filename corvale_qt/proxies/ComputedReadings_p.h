// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/SampleRing_p.h"
#include "corvale_qt/proxies/ChannelExpressions.h"

#include <vector>

namespace Corvale_Qt {

class PlotDataReader;

/*! The readings of computed channels, one for each row of a source, oldest first. Rows are counted from 1, computed channels and
    the channels of the source from 0. */
class ComputedReadings
{
public:
    //! Compiles the expressions and removes all rows. Returns false, with a fault, if they make no sense; all readings are NaN then.
    bool compile(const QStringList &names,
                 const QVector<ComputedChannel> &computed,
                 ExpressionFault *fault);
    //! Removes all rows and sets how many there may be.
    void reset(int capacity);

    //! Returns how many rows there are.
    int rows() const { return m_channels.empty() ? 0 : int(m_channels[0].ring.size()); }
    const SampleRing &ring(int channel) const { return m_channels[size_t(channel)].ring; }
    //! Finds rows of a channel in memory, with their cached ranges; see ringSpans().
    bool spans(int channel, int firstRow, int count, RingSpans &spans) const;

    void dropOldest(int rows);
    //! Computes row \a from to row \a rows, the source's last.
    void update(const PlotDataReader &source, int from, int rows);
    //! Computes rows of the source without storing them; \a out has \a count numbers.
    void compute(const PlotDataReader &source, int channel, int firstRow, int count, double *out);
    //! Returns whether a column of the source that is used drops rows on its own (LibraryBulkData::droppedRows()).
    bool hasOwnDrops(const PlotDataReader &source) const;

private:
    struct Channel
    {
        SampleRing ring;
        mutable BlockRanges ranges;
        std::vector<double> results; // of the rows that are being computed
    };

    static constexpr int chunk = 256;

    void computeChunk(const PlotDataReader &source, int firstRow, int count);

    ChannelExpressions m_expressions;
    bool m_isGood = false;
    QVector<int> m_inputs;
    std::vector<std::vector<double>> m_readings; // of each input
    std::vector<const double *> m_sources; // of each channel of the source
    std::vector<double *> m_outputs;
    std::vector<Channel> m_channels;
    qint64 m_taken = 0; // rows ever stored, without those that were removed at the end
};

} // namespace Corvale_Qt
