// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <limits>

namespace Corvale_Qt {

/*! What the two markers of a scope plot view read, as the labels of the markers show it.

    Readings are in the unit of the model and times in its unit of x. A number that does not exist is NaN. */
struct CORVALE_QT_EXPORT ScopeMarkerStatistics
{
    //! The sample, or the bar, that a marker stands on.
    struct CORVALE_QT_EXPORT Marker
    {
        bool isSet =
            false; //!< whether the marker stands on a sample; if not, the other fields are as here
        int row =
            0; //!< of the sample in the view's model; 0 if it has left it, or if only a block holds it
        int channel = 0; //!< counted from 1
        double time = std::numeric_limits<double>::quiet_NaN(); //!< x of the sample
        double reading = std::numeric_limits<
            double>::quiet_NaN(); //!< NaN if it is missing or if only a block holds it

        //! Compares all fields; NaN equals NaN.
        bool operator==(const Marker &other) const;
        //! Returns whether a field differs.
        bool operator!=(const Marker &other) const { return !(*this == other); }
    };

    //! Returns whether both markers are set, so that there is something between them.
    bool hasSpan() const { return first.isSet && second.isSet; }
    //! Compares all fields; NaN equals NaN.
    bool operator==(const ScopeMarkerStatistics &other) const;
    //! Returns whether a field differs.
    bool operator!=(const ScopeMarkerStatistics &other) const { return !(*this == other); }

    Marker first; //!< placed by the left button
    Marker second; //!< placed by the right button

    // Of both markers.
    double period =
        std::numeric_limits<double>::quiet_NaN(); //!< time between them, 0 or more; NaN for bars
    double frequency =
        std::numeric_limits<double>::quiet_NaN(); //!< 1 / period; NaN for a period of 0
    double difference = std::numeric_limits<
        double>::quiet_NaN(); //!< reading of second minus that of first; NaN if their units differ

    /* Of the readings of the second marker's channel from one marker to the other, both included; in a histogram, of the
       bars from one to the other. */
    int count = 0; //!< n, the number of readings that are finite
    int missing = 0; //!< the number of those that are not
    double sum = std::numeric_limits<double>::quiet_NaN(); //!< of the n readings
    double mean = std::numeric_limits<double>::quiet_NaN(); //!< sum / n
    double rms = std::numeric_limits<double>::quiet_NaN(); //!< root of the mean of the squares
    //! Root of the squared deviations from the mean, divided by n - 1; 0 for a single reading.
    double standardDeviation = std::numeric_limits<double>::quiet_NaN();
    /*! Over time by the trapezoidal rule, in the unit of the model times that of x. It bridges neither missing readings nor the
        outages of RVXScopePlotView::gapIntervals. NaN for bars. */
    double integral = std::numeric_limits<double>::quiet_NaN();
    double coveredTime = std::numeric_limits<
        double>::quiet_NaN(); //!< the part of the period that the integral covers; NaN for bars
    int outages = 0; //!< between the markers; 0 while gapIntervals is 0
    double minimum = std::numeric_limits<double>::quiet_NaN(); //!< the lowest of the n readings
    double maximum = std::numeric_limits<double>::quiet_NaN(); //!< the highest of them
    /*! Slope of the straight line with the least squared deviations from the n readings, in the unit of the readings for
        each unit of x. NaN for bars, and for fewer than two times. */
    double slope = std::numeric_limits<double>::quiet_NaN();

    /* Where a marker stands on readings that are only remembered in blocks (RVXPlotHistory), number, sum, mean and extremes are those
       of whole blocks and of the rows after them; RMS, standard deviation, integral and slope are not known, and so NaN. */
    double blocksBegin = std::numeric_limits<
        double>::quiet_NaN(); //!< x of the first reading that counts; NaN without blocks
    double blocksEnd = std::numeric_limits<
        double>::quiet_NaN(); //!< x of the last reading that counts; NaN without blocks
};

} // namespace Corvale_Qt
