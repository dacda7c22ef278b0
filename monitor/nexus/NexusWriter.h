// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"

#include <memory>

namespace Monitor {

/*! Writes readings to an HDF5 file in the form of NeXus: an NXentry for each acquisition, with an NXdata for the channels of each
    unit, or for the frames; the detector; and the events. Numbers and times are written as they are, in double precision, and
    compressed. The memory that is needed does not depend on the length.

    After a failure everything that follows is ignored, and finish() tells of it. */
class NexusWriter
{
public:
    //! The most acquisitions that one file holds.
    static constexpr int maxEntries = 10000;

    NexusWriter();
    ~NexusWriter();
    NexusWriter(const NexusWriter &) = delete;
    NexusWriter &operator=(const NexusWriter &) = delete;

    /*! Opens a file; what it holds is lost. \a source says where the readings come from, as a line for people. Returns false, with
        errorString(), if that is not possible. */
    bool open(const QString &path, const QString &source);
    //! Begins another acquisition; the readings that follow have the channels of this header.
    void startStream(const StreamHeader &header);
    //! Writes a reading, with as many values as the header says; ignored without a header.
    void addReading(double time, const double *values);
    //! Writes readings; those with another number of values than the header are ignored.
    void addReadings(const ReadingBlock &readings);
    //! Writes an event, in its place among the readings.
    void addEvent(const QString &text);
    //! Writes what is left and closes the file. Returns false, with errorString(), if anything could not be written.
    bool finish();

    bool hasFailed() const { return !errorString().isEmpty(); }
    //! Returns why writing failed; empty while it has not.
    QString errorString() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace Monitor
