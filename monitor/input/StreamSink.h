// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/RefusedLine.h"
#include "monitor/readings/StreamHeader.h"

namespace Monitor {

//! Takes what is read from a stream of lines, in the order of the lines.
class StreamSink
{
public:
    virtual ~StreamSink();
    //! A new acquisition begins: what came before is another one, and its time says nothing about this.
    virtual void streamStarted(const StreamHeader &header) = 0;
    //! One value for each channel of the header; NaN where there is no reading.
    virtual void reading(double time, const double *values) = 0;
    virtual void eventNoted(const QString &text) = 0;
    virtual void lineRefused(const RefusedLine &line) = 0;
};

} // namespace Monitor
