// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QByteArray>

namespace Monitor {

/*! \file
    The text of a recording: "#" lines that describe it, one line of names with units as suffixes, then lines
    "time,value,value,..." with 17 significant digits, which restore every number bit for bit. Frames have no names. */

//! How many bytes of text are read or written at a time.
inline constexpr int recordingPiece = 1024 * 1024;

//! Returns everything that comes before the first reading. \a source is a line for people.
QByteArray recordingHeader(const StreamHeader &header, const QString &source);
//! Returns whether recordingHeader() describes the detector, if there is one: a line that is too long could not be read back.
bool isDetectorRecorded(const StreamHeader &header);
//! Appends the line of one reading with \a channels values; NaN becomes an empty field.
void appendRecordingRow(QByteArray *text, double time, const double *values, int channels);
/*! Appends one reading of a stream with that header: a line, or for a frame whose values are the cells of a matrix "#frame" and
    a line for each row. */
void appendRecordingReading(QByteArray *text,
                            const StreamHeader &header,
                            double time,
                            const double *values);
//! Appends an "#event" line.
void appendRecordingEvent(QByteArray *text, const QString &event);

} // namespace Monitor
