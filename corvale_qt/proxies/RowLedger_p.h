// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/proxies/ChannelSource_p.h"

namespace Corvale_Qt {

/*! Keeps the account of sample rows between the sources of a RVXMultichannelProxyModel and its views: the rows
    announced are the rows that there are, at every end signal, whatever the sources do and in whatever order.

    - A source that grows past the others is announced as it grows. One that grows within the rows announced
      changes its column there: from the repeated older sample to the new ones.
    - A source that drops rows at its front shifts the table, unless another one has shifted it as far already:
      the first of a round is announced as a removal at the front, and the row that comes back at the end as an
      insertion; those that follow are changes of their column. droppedRows() of a column tells who follows.
    - Anything else that is left over at the end of a source's change is settled at the end of the table.

    One change is open at a time. What a source does while another one's is open, or during a reset, is settled
    after that. The work for a sample does not depend on the number of sources. */
class RowLedger
{
public:
    RowLedger(RVXMultichannelProxyModel *proxy,
              const ChannelSources &sources,
              const QVector<Channel> &channels);

    //! Sample rows of the proxy, as announced.
    int rows() const { return m_rows; }

    void rowsAboutToBeInserted(ChannelSource &source, int last);
    void rowsInserted(ChannelSource &source, int first);
    void rowsAboutToBeRemoved(ChannelSource &source, int first, int last);
    void rowsRemoved(ChannelSource &source, int first, int last);

    //! Resets may stand within each other; views hear of the outermost, and see no samples meanwhile.
    void beginReset();
    //! Counts all rows anew, tells the proxy's hook, and ends the reset.
    void endReset();
    //! Nothing more will come of the changes that \a source has open.
    void abandon(ChannelSource &source);

private:
    enum class Change {
        None,
        Insertion,
        Removal
    };

    bool isBusy() const { return m_change != Change::None || m_resets > 0; }
    void open(Change change, const ChannelSource *by, int first, int last);
    void close();
    bool isOpenFor(const ChannelSource &source, Change change) const;
    void closeFor(const ChannelSource &source, Change change);
    int announcedLead(qint64 dropped, bool rowsRemain) const;
    void announce(Change change, int first, int last);
    void settle(const ChannelSource &source);
    void frontDropped(const ChannelSource &source, bool tableWentAlong);
    void columnChanged(const ChannelSource &source, int first, int last);
    void cellsChanged(int column, int first, int last);

    void count(ChannelSource &source);
    void countLongest();
    void countAll();
    int longestBefore(const ChannelSource &source, int enough) const;
    int longestBeside(const ChannelSource &source) const;

    RVXMultichannelProxyModel *const q;
    const ChannelSources &m_sources;
    const QVector<Channel> &m_channels;

    int m_rows = 0;
    int m_resets = 0;
    // Front rows that the table was shifted by, and the most that any source has dropped.
    qint64 m_shifted = 0;
    qint64 m_mostDropped = 0;
    // Sample rows of the longest source, and how many sources have as many.
    int m_longest = 0;
    int m_holders = 0;

    // The change that is announced and not ended: rows m_first to m_last.
    Change m_change = Change::None;
    const ChannelSource *m_opener = nullptr;
    int m_first = 0;
    int m_last = 0;
};

} // namespace Corvale_Qt
