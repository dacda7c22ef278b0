// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_monitor/SourcePlugin.h>
#include <limits>
#include <vector>

//! What is configured of an attribute.
struct TangoAttribute
{
    enum class Form {
        Scalar,
        Spectrum,
        Image,
    };

    CorvaleMonitor::SourceChannel channel; //!< name, unit and alarm limits
    QString label; //!< for persons; empty if there is none
    QString type; //!< of a value, as in DevDouble
    Form form = Form::Scalar;
    bool isNumber = true; //!< and neither a text nor a state
    QString
        eventThreshold; //!< how small a change sends no event, like "1 %"; empty if none is configured
    double factor = 1.0; //!< what is shown is this many times what is read
    double lowest = std::numeric_limits<double>::quiet_NaN(); //!< of its range; NaN if not known
    double highest = std::numeric_limits<double>::quiet_NaN(); //!< of its range; NaN if not known

    //! Returns whether values of both can be put into the same stream.
    bool isLike(const TangoAttribute &other) const;
    //! Returns what is configured, for a person who tests the source.
    QString summary() const;
};

//! What was read of an attribute.
struct TangoReading
{
    enum class Quality {
        Valid,
        Invalid,
        Alarm,
        Warning,
    };

    QString
        fault; //!< why there are no values although the device answers; empty if nothing is wrong
    bool isTooLarge = false; //!< whether there are more values than a window can show
    Quality quality = Quality::Valid;
    double time =
        std::numeric_limits<double>::quiet_NaN(); //!< in seconds since 1970; NaN if not known
    int columns = 0; //!< 1 for a scalar, the length of a spectrum; 0 if there are no values
    int rows = 0; //!< 1 unless it is an image
    std::vector<double> values; //!< row after row, as the device has them

    //! Returns whether there are values that mean something.
    bool hasValues() const { return fault.isEmpty() && quality != Quality::Invalid && columns > 0; }
};

//! Returns what is out of order with a reading, like "alarm, over range"; empty if nothing is.
QString tangoCondition(const TangoAttribute &attribute, const TangoReading &reading);
