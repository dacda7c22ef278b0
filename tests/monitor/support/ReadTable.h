// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/CsvReader.h"
#include "tests/monitor/support/TextSink.h"

//! Returns what a table holds in the words of TextSink, or why it cannot be opened.
inline QString readTable(const QString &path)
{
    TextSink sink;
    Monitor::CsvReader reader(sink);
    if (!reader.open(path))
        return reader.errorString();
    while (reader.read(10000)) { }
    return sink.text();
}
