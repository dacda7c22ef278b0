// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"
#include "monitor/input/StreamSink.h"
#include "monitor/input/TableReader.h"

#include <memory>

namespace Monitor {

/*! Returns the reader that suits a file: one of HDF5, or of a table. \a options say how a table is read; with \a passesDamage, reading
    goes on behind damage of a compressed one. \a sink must outlive the reader. */
std::unique_ptr<TableReader> makeTableReader(const QString &path,
                                             StreamSink &sink,
                                             const ImportOptions &options = {},
                                             bool passesDamage = false);

} // namespace Monitor
