// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/SampleRows_p.h"

namespace Corvale_Qt {

class PlotColumnReader;
struct ScopeMarkerStatistics;

/*! Statistics of values that are added one by one. A value that is not finite counts as missing and does not enter the
    results. */
class MarkerStatistics
{
public:
    void add(double value);

    //! Returns the number of finite values.
    int count() const { return m_count; }
    int missing() const { return m_missing; }
    double sum() const { return m_sum; }
    double mean() const;
    //! Returns the root of the mean of the squares; 0 without values.
    double rms() const;
    //! Returns the sample standard deviation, with count - 1 degrees of freedom; 0 for fewer than two values.
    double standardDeviation() const;
    //! Writes the numbers into the form that hosts read; they are NaN without values.
    void writeTo(ScopeMarkerStatistics &result) const;

private:
    int m_count = 0;
    int m_missing = 0;
    double m_sum = 0.0;
    double m_squares = 0.0;
    // Sums about the first value: otherwise rounding would swallow a small ripple on a large value.
    double m_origin = 0.0;
    double m_offsets = 0.0;
    double m_offsetSquares = 0.0;
};

//! Returns the statistics of one column over a range of rows.
MarkerStatistics statisticsOfRows(const PlotColumnReader &reader, int column, RowRange rows);

} // namespace Corvale_Qt
