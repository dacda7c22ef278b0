// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QByteArray>

namespace Monitor {

/*! The lines that describe a stream in a recording, and the form of its frames: all that a reader needs to know the stream as it
    would from the recording itself. */
struct RecordedHeader
{
    QByteArray lines;
    int values = 0; //!< number of values in a reading
    int frameRows = 0; //!< number of lines in which a frame is written; 0 for a single line
    bool hasFrameTimes = true; //!< whether frames have times; of other readings the lines say it

    //! Returns the description of a stream; \a source is a line for people.
    static RecordedHeader of(const StreamHeader &header, const QString &source);
    //! Returns the header that a recording with these lines has; one without values if they make no sense.
    StreamHeader parsed() const;
};

} // namespace Monitor
