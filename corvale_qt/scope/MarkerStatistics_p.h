// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/SampleRows_p.h"

#include <limits>

namespace Corvale_Qt {

class PlotDataReader;
struct ScopeMarkerStatistics;

/*! Statistics of values that are added one by one. A value that is not finite counts as missing and does not enter the
    results. */
class MarkerStatistics
{
public:
    void add(double value);
    //! Adds a value at a time, for the slope.
    void add(double x, double value);

    //! Returns the number of finite values.
    int count() const { return m_count; }
    int missing() const { return m_missing; }
    double sum() const { return m_sum; }
    double mean() const;
    //! Returns the root of the mean of the squares; 0 without values.
    double rms() const;
    //! Returns the sample standard deviation, with count - 1 degrees of freedom; 0 for fewer than two values.
    double standardDeviation() const;
    //! Returns the lowest value; NaN without values.
    double minimum() const { return m_minimum; }
    //! Returns the highest value; NaN without values.
    double maximum() const { return m_maximum; }
    //! Returns the slope of the least squares line through the values over their times; NaN for fewer than two times.
    double slope() const;
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
    double m_minimum = std::numeric_limits<double>::quiet_NaN();
    double m_maximum = std::numeric_limits<double>::quiet_NaN();

    // Values with times; the times are counted from the first one.
    int m_timed = 0;
    double m_firstX = 0.0;
    double m_times = 0.0;
    double m_timeSquares = 0.0;
    double m_timedOffsets = 0.0; //!< sum of the offsets of the values that have times
    double m_products = 0.0; //!< of time and offset
};

//! Returns the statistics of one column over a range of rows, with column 0 as the times.
MarkerStatistics statisticsOfRows(const PlotDataReader &reader, int column, RowRange rows);

} // namespace Corvale_Qt
