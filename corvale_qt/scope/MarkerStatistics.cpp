// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
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
    if (m_count == 0)
        m_origin = value;
    ++m_count;
    m_sum += value;
    m_squares += value * value;
    const double offset = value - m_origin;
    m_offsets += offset;
    m_offsetSquares += offset * offset;
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
}

MarkerStatistics statisticsOfRows(const PlotColumnReader &reader, int column, RowRange rows)
{
    constexpr int chunk = 1024;
    double values[chunk];
    MarkerStatistics statistics;
    for (int row = rows.first; row <= rows.last; row += chunk) {
        const int count = std::min(chunk, rows.last - row + 1);
        reader.read(column, row, count, values);
        std::for_each(values, values + count, [&](double value) {
            statistics.add(value);
        });
    }
    return statistics;
}

} // namespace Corvale_Qt
