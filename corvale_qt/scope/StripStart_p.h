// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: where the samples of a strip chart begin.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

namespace Corvale_Qt {

class PlotColumnReader;
struct StripRequest;

/*! The first row that belongs to a strip chart. Where time steps back by more than the chart shows, a new acquisition
    has begun: the rows before the step are of another time, and would look live beside those after it. Each row
    is looked at once. */
class StripStart
{
public:
    int row() const { return m_row; }
    //! Forgets what was found; all rows are looked at again.
    void restart();
    //! Rows \a start to \a end have gone.
    void rowsRemoved(int start, int end);
    //! Rows have come, the first of them at \a start.
    void rowsInserted(int start);
    //! Looks at the rows that have come since the last call. \a request gives the width of the chart.
    void update(const PlotColumnReader &reader, const StripRequest &request);

private:
    void look(int row, double x, const PlotColumnReader &reader, const StripRequest &request);
    double
    shownWidth(const PlotColumnReader &reader, const StripRequest &request, int lastRow) const;

    int m_row = 1;
    int m_checked = 0; //!< the last row that was looked at
    // The stamp before, of those that are finite; row 0 for none.
    int m_stampRow = 0;
    double m_stamp = 0.0;
};

} // namespace Corvale_Qt
