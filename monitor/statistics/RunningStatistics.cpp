// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/RunningStatistics.h"

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

constexpr double undefined = std::numeric_limits<double>::quiet_NaN();

} // namespace

void RunningStatistics::add(double time, double value)
{
    if (!std::isfinite(value)) {
        interrupt();
        return;
    }
    if (m_count > 0) {
        const double step = time - m_lastTime;
        const double area = 0.5 * (value + m_lastValue) * step;
        m_integral += area;
        if (m_isConnected) {
            m_coveredIntegral += area;
            m_coveredTime += step;
        }
    }
    m_isConnected = true;
    m_lastTime = time;
    m_lastValue = value;
    ++m_count;
    m_sum += value;
    const double deviation = value - m_mean;
    m_mean += deviation / double(m_count);
    m_squares += deviation * (value - m_mean);
    m_minimum = std::min(m_minimum, value);
    m_maximum = std::max(m_maximum, value);
}

double RunningStatistics::mean() const
{
    return m_count > 0 ? m_mean : undefined;
}

double RunningStatistics::sigma() const
{
    return m_count > 1 ? std::sqrt(m_squares / double(m_count - 1)) : undefined;
}

double RunningStatistics::populationSigma() const
{
    return m_count > 0 ? std::sqrt(m_squares / double(m_count)) : undefined;
}

double RunningStatistics::minimum() const
{
    return m_count > 0 ? m_minimum : undefined;
}

double RunningStatistics::maximum() const
{
    return m_count > 0 ? m_maximum : undefined;
}

} // namespace Monitor
