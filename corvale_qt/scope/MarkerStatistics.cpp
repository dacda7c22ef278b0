// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

void MarkerStatistics::add(double value)
{
    if (!std::isfinite(value)) {
        ++m_missing;
        return;
    }
    if (m_count == 0) {
        m_origin = value;
        m_minimum = value;
        m_maximum = value;
    }
    m_minimum = std::min(m_minimum, value);
    m_maximum = std::max(m_maximum, value);
    ++m_count;
    m_sum += value;
    m_squares += value * value;
    const double offset = value - m_origin;
    m_offsets += offset;
    m_offsetSquares += offset * offset;
}

void MarkerStatistics::add(double x, double value)
{
    add(value);
    if (!std::isfinite(x) || !std::isfinite(value))
        return;
    if (m_timed == 0)
        m_firstX = x;
    ++m_timed;
    const double time = x - m_firstX;
    const double offset = value - m_origin;
    m_times += time;
    m_timeSquares += time * time;
    m_timedOffsets += offset;
    m_products += time * offset;
}

double MarkerStatistics::slope() const
{
    const double spread = m_timed * m_timeSquares - m_times * m_times;
    const bool hasTimes = m_timed > 1 && spread > 0.0;
    return hasTimes ? (m_timed * m_products - m_times * m_timedOffsets) / spread : std::nan("");
}

double MarkerStatistics::mean() const
{
    return m_count > 0 ? m_sum / m_count : 0.0;
}

double MarkerStatistics::rms() const
{
    return m_count > 0 ? std::sqrt(m_squares / m_count) : 0.0;
}

double MarkerStatistics::standardDeviation() const
{
    if (m_count < 2)
        return 0.0;
    const double variance = (m_offsetSquares - m_offsets * m_offsets / m_count) / (m_count - 1);
    return variance < 0.0 ? 0.0 : std::sqrt(variance); // below 0 by rounding only
}

void MarkerStatistics::writeTo(ScopeMarkerStatistics &result) const
{
    result.count = m_count;
    result.missing = m_missing;
    if (m_count == 0)
        return;
    result.sum = m_sum;
    result.mean = mean();
    result.rms = rms();
    result.standardDeviation = standardDeviation();
    result.minimum = minimum();
    result.maximum = maximum();
    result.slope = slope();
}

MarkerStatistics statisticsOfRows(const PlotDataReader &reader, int column, RowRange rows)
{
    constexpr int chunk = 1024;
    double times[chunk];
    double values[chunk];
    MarkerStatistics statistics;
    for (int row = rows.first; row <= rows.last; row += chunk) {
        const int count = std::min(chunk, rows.last - row + 1);
        reader.read(0, row, count, times);
        reader.read(column, row, count, values);
        for (int i = 0; i < count; ++i)
            statistics.add(times[i], values[i]);
    }
    return statistics;
}

} // namespace Corvale_Qt
