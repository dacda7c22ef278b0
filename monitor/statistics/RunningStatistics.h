// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGlobal>

#include <limits>

namespace Monitor {

class ReadingBlock;

/*! Count, mean, standard deviation, extremes and integral over time of one channel, in one pass and constant memory
    (Welford's update of the mean and the sum of squares). Readings that are not finite are ignored. */
class RunningStatistics
{
public:
    //! Adds a reading; \a time is in seconds and must not decrease.
    void add(double time, double value);
    /*! Adds the rows of a block from \a first to before \a end to the statistics of its channels, with the same numbers as add(). */
    static void addRows(RunningStatistics *channels, const ReadingBlock &rows, int first, int end);

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
    //! Returns the sum of all values; 0 without readings.
    double sum() const { return m_sum; }
    //! Says that readings are missing after the last one.
    void interrupt() { m_isConnected = false; }
    /*! Returns the integral by the trapezoidal rule over all readings, in the channel's unit times seconds; 0 with fewer than
        two readings. It takes a straight line where readings are missing. */
    double integral() const { return m_integral; }
    //! Returns the part of the integral that belongs to times with readings.
    double coveredIntegral() const { return m_coveredIntegral; }
    //! Returns the seconds of coveredIntegral().
    double coveredTime() const { return m_coveredTime; }

private:
    class FourChannels;

    qint64 m_count = 0;
    double m_mean = 0.0;
    double m_squares = 0.0;
    double m_sum = 0.0; // exact for counts, where the mean times the count is not
    double m_minimum = std::numeric_limits<double>::infinity();
    double m_maximum = -std::numeric_limits<double>::infinity();
    double m_integral = 0.0;
    double m_coveredIntegral = 0.0;
    double m_coveredTime = 0.0;
    bool m_isConnected = false; //!< no reading is missing after the last one
    double m_lastTime = 0.0;
    double m_lastValue = 0.0;
};

} // namespace Monitor
