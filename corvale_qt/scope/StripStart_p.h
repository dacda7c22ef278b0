// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

class PlotDataReader;
struct StripRequest;

/*! Finds the first row that belongs to a strip chart. A step of time backwards by more than the chart shows means that a
    new acquisition has begun: the rows before the step are old and would look live beside those after it. Each row is
    read once. */
class StripStart
{
public:
    //! Returns the first row of the chart, 1 or more.
    int row() const { return m_row; }
    //! Forgets what was found; the next update reads all rows again.
    void restart();
    //! Follows the removal of rows \a start to \a end.
    void rowsRemoved(int start, int end);
    //! Follows an insertion of rows that begins at \a start.
    void rowsInserted(int start);
    //! Reads the rows that were added since the last call. \a request gives the width of the chart.
    void update(const PlotDataReader &reader, const StripRequest &request);

private:
    void look(int row, double x, const PlotDataReader &reader, const StripRequest &request);
    double shownWidth(const PlotDataReader &reader, const StripRequest &request, int lastRow) const;

    int m_row = 1;
    int m_checked = 0; //!< the last row that was read
    // The previous finite time stamp; row 0 for none.
    int m_stampRow = 0;
    double m_stamp = 0.0;
};

} // namespace Corvale_Qt
