// SPDX-License-Identifier: LGPL-2.1-or-later
// What stands for the reader and the writer where the HDF5 library is missing: each says so.
#include "monitor/nexus/NexusFiles.h"
#include "monitor/nexus/NexusReader.h"
#include "monitor/nexus/NexusWriter.h"

namespace Monitor {

class NexusWriter::Private
{
};

NexusWriter::NexusWriter() = default;
NexusWriter::~NexusWriter() = default;

bool NexusWriter::open(const QString &, const QString &)
{
    return false;
}

void NexusWriter::startStream(const StreamHeader &) { }
void NexusWriter::addReading(double, const double *) { }
void NexusWriter::addReadings(const ReadingBlock &) { }
void NexusWriter::addEvent(const QString &) { }

bool NexusWriter::finish()
{
    return false;
}

QString NexusWriter::errorString() const
{
    return nexusMissing();
}

class NexusReader::Private
{
};

NexusReader::NexusReader(StreamSink &) { }
NexusReader::~NexusReader() = default;

bool NexusReader::open(const QString &)
{
    return false;
}

bool NexusReader::read(int)
{
    return false;
}

bool NexusReader::rewind()
{
    return false;
}

bool NexusReader::resume(const ReadPoint &)
{
    return false;
}

ReadPoint NexusReader::readPoint() const
{
    return {};
}

qint64 NexusReader::textSize() const
{
    return 0;
}

bool NexusReader::hasFailed() const
{
    return true;
}

QString NexusReader::errorString() const
{
    return nexusMissing();
}

LineCounts NexusReader::counts() const
{
    return {};
}

double NexusReader::progress() const
{
    return 1.0;
}

} // namespace Monitor
