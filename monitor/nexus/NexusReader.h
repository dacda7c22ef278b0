// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/StreamSink.h"
#include "monitor/input/TableReader.h"

#include <memory>

namespace Monitor {

/*! Reads an HDF5 file in the form of NeXus: one that the monitor has written, with all that it wrote; or one of another program, whose
    default NXdata has a signal of one to three dimensions, the first of which is the time. An entry is an acquisition. Readings whose
    times go back or are not numbers are refused.

    A file may be damaged or made by somebody who means harm: what it asks for is checked before memory is taken. */
class NexusReader : public TableReader
{
public:
    //! \a sink receives what is read; it must outlive the reader.
    explicit NexusReader(StreamSink &sink);
    ~NexusReader() override;

    bool open(const QString &path) override;
    bool read(int bytes) override;
    bool rewind() override;
    bool resume(const ReadPoint &point) override;
    ReadPoint readPoint() const override;
    qint64 textSize() const override;
    bool hasFailed() const override;
    QString errorString() const override;
    LineCounts counts() const override;
    double progress() const override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace Monitor
