// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/TableReaders.h"
#include "tests/monitor/support/TextSink.h"

//! Returns what a table or an HDF5 file holds in the words of TextSink, or why it cannot be opened.
inline QString readTable(const QString &path)
{
    TextSink sink;
    const auto reader = Monitor::makeTableReader(path, sink);
    if (!reader->open(path))
        return reader->errorString();
    while (reader->read(10000)) { }
    return sink.text();
}
