// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SourceImport.h"

#include "monitor/nexus/NexusFiles.h"
#include "monitor/sources/PgmSource.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/window/ImportDialog.h"

namespace Monitor {

std::optional<ImportOptions> importOfSource(const QString &source,
                                            const ImportOptions &given,
                                            WindowSettings *settings,
                                            QWidget *parent)
{
    const QString path = SourceFactory::filePath(source);
    const bool isTable = !path.isEmpty() && !PgmSource::suits(path) && !isHdf5File(path);
    return isTable && given.isUsual() ? ImportDialog::optionsFor(path, settings, parent) : given;
}

const FileSource *tableOf(const Source &source)
{
    const auto *file = qobject_cast<const FileSource *>(&source);
    return file && !isHdf5File(file->path()) ? file : nullptr;
}

QString importNote(const ImportOptions &import)
{
    // English as all lines of the log.
    return import.isUsual()
        ? QString()
        : QStringLiteral(
              "the table is read by --import \"%1\"; File > Read again as... changes that")
              .arg(import.text());
}

} // namespace Monitor
