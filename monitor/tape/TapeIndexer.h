// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"
#include "monitor/tape/TapeIndex.h"

#include <atomic>

namespace Monitor {

//! What an indexer and the thread that waits for it share.
struct TapeIndexing
{
    std::atomic<double> progress{0.0}; //!< from 0 to 1
    std::atomic<bool> isCancelled{false};
};

/*! Reads a recording to its end and returns its index; an empty one, with a reason in \a error, if it has no readings or
    cannot be indexed, and an empty one without a reason if it was cancelled. May be called on any thread. */
TapeIndex indexTape(const QString &path,
                    const ImportOptions &options,
                    TapeIndexing *indexing,
                    QString *error);

} // namespace Monitor
