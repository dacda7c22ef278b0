// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/HistorySpan_p.h"

namespace Corvale_Qt {

class MarkerStatistics;
struct ScopeMarkerStatistics;

/*! Statistics of readings of which the older ones are only remembered in blocks. Number, mean and extremes are exact; blocks tell
    neither RMS nor standard deviation. */
class BlockStatistics
{
public:
    explicit BlockStatistics(const HistorySpan &span);
    //! Adds the rows that follow the blocks, of which \a lastX is x of the last one.
    void add(const MarkerStatistics &rows, double lastX);

    const RVXPlotHistory::Block &readings() const { return m_span.readings; }
    qint64 missing() const { return m_span.rows - m_span.readings.count; }
    //! Returns x of the first row that counts.
    double first() const { return m_span.first; }
    //! Returns x of the last row that counts.
    double last() const { return m_span.last; }
    //! Writes the numbers into the form that hosts read; those that are not known are NaN.
    void writeTo(ScopeMarkerStatistics &result) const;

private:
    HistorySpan m_span;
};

} // namespace Corvale_Qt
