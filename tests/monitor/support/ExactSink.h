// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/TableReaders.h"
#include "monitor/recording/RecordingRows.h"
#include "monitor/recording/RecordingWriter.h"

//! Writes down what is read so that no bit of it is left out: as the lines of a recording.
class ExactSink : public Monitor::StreamSink
{
public:
    void streamStarted(const Monitor::StreamHeader &header) override
    {
        m_header = header;
        text += Monitor::recordingHeader(header, {});
    }
    void reading(double time, const double *values) override
    {
        Monitor::appendRecordingReading(&text, Monitor::readingShape(m_header), time, values);
    }
    void eventNoted(const QString &event) override { Monitor::appendRecordingEvent(&text, event); }
    void lineRefused(const Monitor::RefusedLine &line) override
    {
        text += "refused " + line.text().toUtf8() + '\n';
    }

    QByteArray text;

private:
    Monitor::StreamHeader m_header;
};

//! Returns all that a file holds, or why it cannot be read.
inline QByteArray readExactly(const QString &path, int piece = 65536)
{
    ExactSink sink;
    const auto reader = Monitor::makeTableReader(path, sink);
    if (reader->open(path))
        while (reader->read(piece)) { }
    return reader->hasFailed() ? "failed: " + reader->errorString().toUtf8() : sink.text;
}
