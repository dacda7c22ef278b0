// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/proxies/ChannelSource_p.h"
#include "corvale_qt/proxies/ProxyIndexes_p.h"

namespace Corvale_Qt {

/*! Keeps the account of sample rows between the sources of a RVXMultichannelProxyModel and its views: the rows
    announced are the rows that there are, at every end signal, whatever the sources do and in whatever order.

    Sources may stand on each other (a model and its average side by side), and then announce one change of the
    lowest one after the other. Between the first announcement and the last, some hold the new samples and some the old.
    So nothing is told of a change before every source has ended what it began, and been heard:

    - A source that grows past the others is announced as it grows. One that grows within the rows announced
      changes its column there: from the repeated older sample to the new ones.
    - A source that drops rows at its front shifts the table, unless another one has shifted it as far already:
      the first of a round is announced as a removal at the front, and the row that comes back at the end as an
      insertion; those that follow are changes of their column. droppedRows() of a column tells who follows.
    - Anything else that is left over is settled at the end of the table.
    - A source that is reset, whose columns come, go or move, or that ends what it was not heard to begin, resets
      the table.

    One change is announced at a time. The work for a sample does not depend on the number of sources. */
class RowLedger
{
public:
    RowLedger(RVXMultichannelProxyModel *proxy,
              const ChannelSources &sources,
              const QVector<Channel> &channels);

    //! Sample rows of the proxy, as announced.
    int rows() const { return m_rows; }
    //! Whether some source is in the middle of a change. What other sources say meanwhile is told afterwards.
    bool isBusy() const { return m_open > 0; }

    void rowsAboutToBeInserted(ChannelSource &source, int last);
    void rowsInserted(ChannelSource &source, int first);
    void rowsAboutToBeRemoved(ChannelSource &source, int first, int last);
    void rowsRemoved(ChannelSource &source, int first, int last);
    void rowsAboutToBeMoved(ChannelSource &source, int first, int last, int before);
    void layoutAboutToBeChanged(ChannelSource &source, SourceChange change);
    //! The table will be reset.
    void aboutToBeReset(ChannelSource &source, SourceChange change);
    //! \a source has done what it announced.
    void end(ChannelSource &source, SourceChange change);
    //! Rows of \a source changed while the ledger was busy; the header is row 0.
    void cellsChangedMeanwhile(ChannelSource &source, int firstRow, int lastRow);

    //! Tells the proxy's hook and its views that cells of the proxy changed.
    void announceCells(int firstRow, int firstColumn, int lastRow, int lastColumn);

    /*! A reset of the proxy's own, around a change of its channels. Such resets may stand within each other; views see
        no samples meanwhile. */
    void beginReset();
    void endReset();
    //! Nothing more will come of the changes that \a source has open.
    void abandon(ChannelSource &source);

private:
    enum class Change {
        None,
        Insertion,
        Removal,
        Move,
        Layout,
        Reset
    };

    //! Notes that \a source begins a change; false if another change is announced, so that this one cannot be.
    bool begin(ChannelSource &source, SourceChange change);
    template<typename Announce>
    void announceBegin(Change change, Announce announce);
    void open(Change change, int first, int last, qint64 shift);
    void openLayout();
    void openReset();
    void close();
    void closeLayout();
    void finishReset();

    void announce(Change change, int first, int last);
    int announcedLead(qint64 dropped, bool rowsRemain) const;
    bool isSettled() const;
    void settle();
    void settleRows();
    void tell(ChannelSource &source, int knownRows, qint64 shift);
    void columnsChanged(const ChannelSource &source, int first, int last);

    ChannelSource::News &newsOf(ChannelSource &source);
    void count(ChannelSource &source);
    void countLongest();
    void countAll();
    int longestBefore(const ChannelSource &source, int enough) const;
    int longestBeside(const ChannelSource &source) const;

    RVXMultichannelProxyModel *const q;
    const ChannelSources &m_sources;
    const QVector<Channel> &m_channels;

    int m_rows = 0;
    // Front rows that the table was shifted by, and the most that any source has dropped.
    qint64 m_shifted = 0;
    qint64 m_mostDropped = 0;
    // Sample rows of the longest source, and how many sources have as many.
    int m_longest = 0;
    int m_holders = 0;

    // How many changes are begun and not ended, by sources or by this.
    int m_open = 0;
    // Sources of which something is to be told.
    QVector<ChannelSource *> m_withNews;
    bool m_needsReset = false;

    // The change that is announced and not ended: rows m_first to m_last, after which the table is shifted by m_shift.
    Change m_change = Change::None;
    int m_first = 0;
    int m_last = 0;
    qint64 m_shift = 0;
    // Views are being told of its beginning; it must not be ended before all of them have heard.
    bool m_beginning = false;
    HeldIndexes m_held;
};

} // namespace Corvale_Qt
