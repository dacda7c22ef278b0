// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/HistoryCover_p.h"

#include <QVector>

class QwtScaleMap;

namespace Corvale_Qt {

//! The blocks of a history that a chart shows, the same for all of its channels. The history is not owned.
class HistoryFrame
{
public:
    //! The pixel columns of a block.
    struct Place
    {
        int left;
        int right;
    };

    //! Shows at most \a most blocks of \a history, of a window from \a left to \a right in x; none for null.
    void show(const RVXPlotHistory *history, double left, double right, int most);
    //! Shows nothing, and forgets the history.
    void clear();

    bool isEmpty() const { return m_intervals.isEmpty(); }
    //! Returns when the blocks were taken, oldest first.
    const QVector<RVXPlotHistory::Interval> &intervals() const { return m_intervals; }
    /*! Sets how many usual intervals without a row are an outage, which no line crosses; 0, as at first, for none. The usual
        interval is the mean one of the blocks on both sides. */
    void setGapIntervals(double intervals) { m_gapIntervals = intervals; }
    //! Returns whether an outage lies between block \a i and the next one, or the row at \a next after the last one.
    bool isGapAfter(int i, double next) const;
    //! Returns whether no row lies between the newest block and row 1 of the model.
    bool reachesRows() const { return m_reachesRows; }
    /*! Reads the blocks of the channel in \a column, one for each interval. Blocks that the history has dropped since show() are
        empty. Returns false if there is no history of the channel. */
    bool read(int column, QVector<RVXPlotHistory::Block> &blocks) const;
    //! Returns the pixel columns of the blocks. The result is kept for the other channels of the chart.
    const QVector<Place> &places(const QwtScaleMap &map) const;

private:
    const RVXPlotHistory *m_history = nullptr;
    QVector<HistoryPiece> m_pieces;
    QVector<RVXPlotHistory::Interval> m_intervals;
    bool m_reachesRows = false;
    double m_gapIntervals = 0.0;
    mutable QVector<Place> m_places;
    mutable double m_map[4] = {0.0, 0.0, 0.0, 0.0}; // which m_places belong to
};

} // namespace Corvale_Qt
