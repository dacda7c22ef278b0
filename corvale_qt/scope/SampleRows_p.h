// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: finding samples by their time stamps.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

namespace Corvale_Qt {

class PlotColumnReader;

//! Sample rows, both included; row 1 is the oldest sample.
struct RowRange
{
    int first = 1;
    int last = 0;

    int size() const { return last - first + 1; }
    bool contains(int row) const { return row >= first && row <= last; }
};

//! x of one row.
double sampleX(const PlotColumnReader &reader, int row);

/*! The rows that a window from \a left to \a right needs: from the last of \a rows whose x is below \a left (the
    first if none is) to the first one after it whose x exceeds \a right (the last if none does). Holds for time
    stamps in any order; looks at the rows it gives and not at those before. */
RowRange rowsAround(const PlotColumnReader &reader, RowRange rows, double left, double right);

//! The first of \a rows whose x is not below \a x; -1 if there is none.
int firstRowFrom(const PlotColumnReader &reader, RowRange rows, double x);
//! The first of \a rows whose x is exactly \a x; -1 if there is none.
int rowAt(const PlotColumnReader &reader, RowRange rows, double x);

//! Median time between neighbours among the last few rows up to \a lastRow; 0 where there are fewer than two.
double typicalInterval(const PlotColumnReader &reader, int lastRow);

} // namespace Corvale_Qt
