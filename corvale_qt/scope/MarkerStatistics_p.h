// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: numbers between two markers.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/scope/SampleRows_p.h"

namespace Corvale_Qt {

class PlotColumnReader;

/*! Sums values as they come. A value that is not finite is a missing one: it is counted, and the results are those of the
    others. */
class MarkerStatistics
{
public:
    void add(double value);

    //! Finite values.
    int count() const { return m_count; }
    int missing() const { return m_missing; }
    double sum() const { return m_sum; }
    double mean() const;
    //! Root of the mean of the squares.
    double rms() const;
    //! Of the sample, with count - 1 degrees of freedom; 0 for fewer than two values.
    double standardDeviation() const;

private:
    int m_count = 0;
    int m_missing = 0;
    double m_sum = 0.0;
    double m_squares = 0.0;
    // About the first value: the squares of a small ripple on a large value would be lost otherwise.
    double m_origin = 0.0;
    double m_offsets = 0.0;
    double m_offsetSquares = 0.0;
};

MarkerStatistics statisticsOfRows(const PlotColumnReader &reader, int column, RowRange rows);

} // namespace Corvale_Qt
