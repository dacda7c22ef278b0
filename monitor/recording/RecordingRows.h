// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>

namespace Monitor {

/*! \file
    The lines of a recording that follow its header. A reading is "time,value,value,..." with as many digits as restore
    every number bit for bit, or "value,value,..." if it has no time. A frame has its time in the line that begins it. */

//! How many bytes of text are read or written at a time.
inline constexpr int recordingPiece = 1024 * 1024;

//! What decides how the values of a reading are written.
struct ReadingShape
{
    int values;
    int frameRows; //!< the lines of a frame, after one that begins it; 0 for a single line
    bool hasTimes;
};

inline bool operator==(const ReadingShape &a, const ReadingShape &b)
{
    return a.values == b.values && a.frameRows == b.frameRows && a.hasTimes == b.hasTimes;
}

//! Appends a number with the fewest digits that restore it.
void appendRecordingNumber(QByteArray *text, double value);
//! Appends the line of one reading with \a channels values; NaN becomes an empty field.
void appendRecordingRow(QByteArray *text, double time, const double *values, int channels);
//! Appends one reading: a line, or for a frame whose values are the cells of a matrix "#frame" and a line for each row.
void appendRecordingReading(QByteArray *text,
                            const ReadingShape &shape,
                            double time,
                            const double *values);
//! Appends an "#event" line.
void appendRecordingEvent(QByteArray *text, const QString &event);

} // namespace Monitor
