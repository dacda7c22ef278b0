// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGlobal>

#include <limits>

namespace Monitor {

/*! Count, mean, standard deviation, extremes and integral over time of one channel, in one pass and constant memory
    (Welford's update of the mean and the sum of squares). Readings that are not finite are ignored. */
class RunningStatistics
{
public:
    //! Adds a reading; \a time is in seconds and must not decrease.
    void add(double time, double value);

    qint64 count() const { return m_count; }
    //! Returns the mean; NaN without readings.
    double mean() const;
    //! Returns the standard deviation of the sample (divided by n - 1); NaN with fewer than two readings.
    double sigma() const;
    //! Returns the standard deviation of the population (divided by n); NaN without readings.
    double populationSigma() const;
    //! Returns the smallest value; NaN without readings.
    double minimum() const;
    //! Returns the largest value; NaN without readings.
    double maximum() const;
    /*! Returns the integral by the trapezoidal rule, in the channel's unit times seconds; 0 with fewer than two
        readings. */
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
