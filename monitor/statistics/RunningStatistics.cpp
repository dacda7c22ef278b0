// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/RunningStatistics.h"

#include "monitor/readings/ReadingBlock.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Monitor {

namespace {

constexpr double undefined = std::numeric_limits<double>::quiet_NaN();

// Two doubles that the processor handles with one instruction.
using Pair = double __attribute__((vector_size(16)));

Pair pairAt(const double *numbers)
{
    Pair pair;
    std::memcpy(&pair, numbers, sizeof pair);
    return pair;
}

//! The statistics of two channels that have had the same number of readings.
struct TwoChannels
{
    //! Adds readings that follow the last ones without a gap.
    void add(Pair value, double step, double count)
    {
        const Pair area = 0.5 * (value + lastValue) * step;
        integral += area;
        coveredIntegral += area;
        coveredTime += step;
        lastValue = value;
        sum += value;
        const Pair deviation = value - mean;
        mean += deviation / count;
        squares += deviation * (value - mean);
        minimum = value < minimum ? value : minimum;
        maximum = maximum < value ? value : maximum;
    }
    //! Returns false after a reading that is not finite, or where the sum has become too large.
    bool areFinite() const
    {
        const Pair zero = sum - sum;
        return zero[0] == 0.0 && zero[1] == 0.0;
    }

    Pair mean, squares, sum, minimum, maximum, integral, coveredIntegral, coveredTime, lastValue;
};

} // namespace

/*! Adds readings to four channels at a time: each reading of a channel waits for the division of the one before, and the processor works on the
    other channels meanwhile. */
class RunningStatistics::FourChannels
{
public:
    static constexpr int count = 4;

    explicit FourChannels(RunningStatistics *channels)
        : m_channels(channels)
    {
    }

    //! Returns whether the channels have had the same readings, none of which was missing just now.
    bool areAlike() const
    {
        return std::all_of(m_channels, m_channels + count, [this](const RunningStatistics &each) {
            return each.m_isConnected && each.m_count == m_channels->m_count
                && each.m_lastTime == m_channels->m_lastTime;
        });
    }
    //! Adds rows whose values for these channels begin at \a values. Returns false, and adds none, if that needs a closer look.
    bool add(const double *times, const double *values, int stride, int rows)
    {
        if (!areAlike())
            return false;
        TwoChannels first = load(0), second = load(2);
        double lastTime = m_channels->m_lastTime;
        const qint64 before = m_channels->m_count;
        for (int row = 0; row < rows; ++row, values += stride) {
            const double step = times[row] - lastTime;
            const auto number = double(before + row + 1);
            first.add(pairAt(values), step, number);
            second.add(pairAt(values + 2), step, number);
            lastTime = times[row];
        }
        if (!first.areFinite() || !second.areFinite())
            return false;
        store(0, first);
        store(2, second);
        for (int i = 0; i < count; ++i) {
            m_channels[i].m_count += rows;
            m_channels[i].m_lastTime = lastTime;
        }
        return true;
    }

private:
    TwoChannels load(int i) const
    {
        const RunningStatistics &a = m_channels[i], &b = m_channels[i + 1];
        const auto both = [&a, &b](double RunningStatistics::*number) {
            return Pair{a.*number, b.*number};
        };
        return {both(&RunningStatistics::m_mean),
                both(&RunningStatistics::m_squares),
                both(&RunningStatistics::m_sum),
                both(&RunningStatistics::m_minimum),
                both(&RunningStatistics::m_maximum),
                both(&RunningStatistics::m_integral),
                both(&RunningStatistics::m_coveredIntegral),
                both(&RunningStatistics::m_coveredTime),
                both(&RunningStatistics::m_lastValue)};
    }
    void store(int first, const TwoChannels &two)
    {
        for (const int i : {0, 1}) {
            RunningStatistics &each = m_channels[first + i];
            each.m_mean = two.mean[i];
            each.m_squares = two.squares[i];
            each.m_sum = two.sum[i];
            each.m_minimum = two.minimum[i];
            each.m_maximum = two.maximum[i];
            each.m_integral = two.integral[i];
            each.m_coveredIntegral = two.coveredIntegral[i];
            each.m_coveredTime = two.coveredTime[i];
            each.m_lastValue = two.lastValue[i];
        }
    }

    RunningStatistics *const m_channels;
};

void RunningStatistics::addRows(RunningStatistics *channels,
                                const ReadingBlock &rows,
                                int first,
                                int end)
{
    if (first >= end)
        return;
    const int stride = rows.channels();
    int channel = 0;
    const auto addOneByOne = [&](int until) {
        for (; channel < until; ++channel) {
            for (int row = first; row < end; ++row)
                channels[channel].add(rows.time(row), rows.values(row)[channel]);
        }
    };
    while (channel + FourChannels::count <= stride) {
        FourChannels four(channels + channel);
        if (four.add(rows.times() + first, rows.values(first) + channel, stride, end - first))
            channel += FourChannels::count;
        else
            addOneByOne(channel + FourChannels::count);
    }
    addOneByOne(stride);
}

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
