// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QByteArray>

namespace Monitor {

/*! \file
    The text of a recording: "#" lines that describe it, one line of names with units as suffixes, then lines
    "time,value,value,..." with 17 significant digits, which restore every number bit for bit. */

//! Returns everything that comes before the first reading. \a source is a line for people.
QByteArray recordingHeader(const StreamHeader &header, const QString &source);
//! Appends the line of one reading with \a channels values; NaN becomes an empty field.
void appendRecordingRow(QByteArray *text, double time, const double *values, int channels);
//! Appends an "#event" line.
void appendRecordingEvent(QByteArray *text, const QString &event);

} // namespace Monitor
