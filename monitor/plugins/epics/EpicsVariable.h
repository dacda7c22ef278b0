// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/epics/ChannelAccess.h"

#include <QByteArray>

#include <corvale_monitor/SourcePlugin.h>
#include <vector>

class EpicsReader;

//! A process variable that is read with others, and what is known about it.
struct EpicsVariable
{
    EpicsReader *reader = nullptr;
    int index = 0; //!< among them, from 0
    QByteArray name;
    ChannelAccess::ChannelId channel = nullptr;
    bool isConnected = false;
    bool wasConnected = false;
    bool isSubscribed = false;
    bool isDescribed = false; //!< whether unit and limits were asked for and answered
    int count = 1; //!< number of values
    CorvaleMonitor::SourceChannel description;
    std::vector<double> values; //!< the newest; empty while there are none
    double time = 0.0; //!< of the newest values, in seconds since 1970; NaN if it is not known
    int severity = ChannelAccess::NoAlarm;

    //! Takes over unit and limits.
    void describe(const ChannelAccess::ControlDouble &control);
    //! Returns whether the number of values, the unit and the limits are those of \a other.
    bool hasFormOf(const EpicsVariable &other) const;
    //! Returns what was found, for a person who tests the source.
    QString summary(const QString &server) const;
};

//! Returns an alarm in words, like "MAJOR alarm, HIHI".
QString epicsAlarmText(int severity, int status);
//! Returns the time of values in seconds since 1970; NaN if the server does not know it.
double epicsTime(const ChannelAccess::TimeDouble &data);
