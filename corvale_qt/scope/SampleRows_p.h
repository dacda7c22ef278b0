// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

class PlotDataReader;

//! A range of sample rows that includes both ends; row 1 is the oldest sample.
struct RowRange
{
    int first = 1;
    int last = 0;

    int size() const { return last - first + 1; }
    bool contains(int row) const { return row >= first && row <= last; }
};

//! Returns x of one row.
double sampleX(const PlotDataReader &reader, int row);

/*! Returns the rows that a window from \a left to \a right needs: from the last of \a rows whose x is below \a left (or
    else the first) to the first one after it whose x exceeds \a right (or else the last). Time stamps may be in any
    order; rows before the result are not read. */
RowRange rowsAround(const PlotDataReader &reader, RowRange rows, double left, double right);

//! Returns the first of \a rows whose x is not below \a x; -1 if all are below.
int firstRowFrom(const PlotDataReader &reader, RowRange rows, double x);
//! Returns the first of \a rows whose x is exactly \a x; -1 if no row has that x.
int rowAt(const PlotDataReader &reader, RowRange rows, double x);

//! Returns the one of \a rows whose x is nearest to \a x; -1 if none has a finite x.
int nearestRow(const PlotDataReader &reader, RowRange rows, double x);

//! Returns the median time between neighbours of the last 65 rows up to \a lastRow; 0 for fewer than two rows.
double typicalInterval(const PlotDataReader &reader, int lastRow);

} // namespace Corvale_Qt
