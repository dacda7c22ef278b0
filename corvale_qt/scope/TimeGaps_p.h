// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/SampleRows_p.h"

#include <algorithm>
#include <deque>

namespace Corvale_Qt {

class PlotDataReader;

/*! Finds the rows before which readings are missing: the time since the row before is longer than a number of usual
    intervals.

    The usual interval is the median of some 32 intervals around the row, so it follows an instrument that changes its rate, and
    a few outages do not move it. Rows with equal time stamps came together and do not count as an interval.

    Rows are judged once, when update() sees them first. Only the newest ones are judged again, because the rows after them
    decide as well. */
class TimeGaps
{
public:
    //! Sets how many usual intervals are an outage; 0, as at first, for none.
    void setIntervals(double intervals);
    double intervals() const { return m_intervals; }
    bool areSought() const { return m_intervals > 0.0; }

    //! Forgets all rows.
    void restart();
    void rowsInserted(int start);
    void rowsRemoved(int start, int end);
    //! Judges the rows up to \a lastRow that are new.
    void update(const PlotDataReader &reader, int lastRow);

    //! Returns whether readings are missing before a row.
    bool isBefore(int row) const;
    //! Calls use(row) for each row of \a rows before which readings are missing, in order.
    template<typename Use>
    void forEach(RowRange rows, Use use) const
    {
        const auto end = m_gaps.end();
        auto gap = std::lower_bound(m_gaps.begin(), end, rows.first + m_dropped);
        for (; gap != end && *gap <= rows.last + m_dropped; ++gap)
            use(int(*gap - m_dropped));
    }

private:
    void judge(const PlotDataReader &reader, RowRange group, int lastRow);

    double m_intervals = 0.0;
    // Rows are counted from the last restart, so that the numbers stay when the oldest rows leave the model.
    std::deque<long long> m_gaps;
    long long m_dropped = 0;
    long long m_judged = 0; //!< the last row that no later one can change
};

} // namespace Corvale_Qt
