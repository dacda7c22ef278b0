// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/tango/TangoBoard.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <vector>

//! How far a value may be trusted, in the terms of the protocol.
enum class TangoQuality {
    Valid,
    Warning,
    Alarm,
    Invalid,
};

//! A value that an attribute has, in one of three forms, and its quality.
struct TangoValue
{
    QVector<double> numbers;
    QStringList texts;
    TangoQuality quality = TangoQuality::Valid;
};

//! An attribute of the device that publishes results.
struct TangoResult
{
    //! What a value of the attribute is.
    enum class Form {
        Number,
        Count, //!< a whole number
        Validity, //!< one of "valid", "poor" and "invalid"
        Text,
        Numbers, //!< one for each channel
        Texts, //!< one for each channel
        States, //!< a number for each channel: 0 normal, 1 warning, 2 alarm, 3 over range
    };

    const char *name;
    const char *description;
    Form form;
    QString (*unit)(const CorvaleMonitor::ResultStream &stream); //!< null if it has none
    TangoValue (*value)(const TangoSnapshot &snapshot);
};

//! Returns all attributes, in the order in which clients list them.
const std::vector<TangoResult> &tangoResults();
