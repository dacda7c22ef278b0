// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/TableReaders.h"

#include "monitor/input/CsvReader.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/nexus/NexusReader.h"

namespace Monitor {

std::unique_ptr<TableReader> makeTableReader(const QString &path,
                                             StreamSink &sink,
                                             const ImportOptions &options,
                                             bool passesDamage)
{
    if (isHdf5File(path))
        return std::make_unique<NexusReader>(sink);
    auto reader = std::make_unique<CsvReader>(sink);
    reader->setImport(options);
    reader->setPassingDamage(passesDamage);
    return reader;
}

} // namespace Monitor
