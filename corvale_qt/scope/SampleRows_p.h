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

/*! The rows that a window from \a left to \a right needs: from the last row whose x is below \a left (row 1 if none
    is) to the first row after it whose x exceeds \a right (the last row if none does). Holds for time stamps in
    any order; looks at the rows it gives and not at those before. */
RowRange rowsAround(const PlotColumnReader &reader, int lastRow, double left, double right);

//! The first of \a rows whose x is not below \a x; -1 if there is none.
int firstRowFrom(const PlotColumnReader &reader, RowRange rows, double x);

} // namespace Corvale_Qt
