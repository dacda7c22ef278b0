// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/RefusedLine.h"
#include "monitor/readings/StreamHeader.h"

namespace Monitor {

//! Receives what is read from a stream of lines, in the order of the lines.
class StreamSink
{
public:
    virtual ~StreamSink();
    //! Called when a new acquisition begins; its times are independent of the times before.
    virtual void streamStarted(const StreamHeader &header) = 0;
    //! Called with the time in seconds and one value per channel of the header; a missing value is NaN.
    virtual void reading(double time, const double *values) = 0;
    //! Called with a line for the log.
    virtual void eventNoted(const QString &text) = 0;
    //! Called when a line was dropped.
    virtual void lineRefused(const RefusedLine &line) = 0;
};

} // namespace Monitor
