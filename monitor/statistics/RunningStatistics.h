// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGlobal>

#include <limits>

namespace Monitor {

/*! Count, mean, standard deviation, extremes and integral over time of one channel, in one pass and constant
    memory (Welford's update of mean and sum of squares). Readings that are not finite are not counted. */
class RunningStatistics
{
public:
    void add(double time, double value);

    qint64 count() const { return m_count; }
    //! NaN without readings, as the others below.
    double mean() const;
    //! Standard deviation of the sample, with n - 1; NaN below two readings.
    double sigma() const;
    //! Standard deviation with n.
    double populationSigma() const;
    double minimum() const;
    double maximum() const;
    //! By the trapezoidal rule, in the channel's unit times seconds; 0 below two readings.
    double integral() const { return m_integral; }

private:
    qint64 m_count = 0;
    double m_mean = 0.0;
    double m_squares = 0.0;
    double m_minimum = std::numeric_limits<double>::infinity();
    double m_maximum = -std::numeric_limits<double>::infinity();
    double m_integral = 0.0;
    double m_lastTime = 0.0;
    double m_lastValue = 0.0;
};

} // namespace Monitor
