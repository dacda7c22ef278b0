// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"
#include "monitor/recording/RecordingRows.h"

#include <QByteArray>

namespace Monitor {

/*! \file
    The text of a recording: "#" lines that describe it, one line of names with units as suffixes, then the readings
    (RecordingRows.h). Frames have no names. */

//! Returns everything that comes before the first reading. \a source is a line for people.
QByteArray recordingHeader(const StreamHeader &header, const QString &source);
//! Returns whether recordingHeader() describes the detector, if there is one: a line that is too long could not be read back.
bool isDetectorRecorded(const StreamHeader &header);
//! Returns the shape of the readings that the header describes.
inline ReadingShape readingShape(const StreamHeader &header)
{
    return {header.valuesPerReading(), header.frameRows, header.hasTimes};
}

} // namespace Monitor
