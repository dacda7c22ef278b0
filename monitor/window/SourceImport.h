// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"

#include <QString>

#include <optional>

class QWidget;

namespace Monitor {

class FileSource;
class Source;
class WindowSettings;

/*! Returns how a source, as the command line has it, is to be read: as \a given if that says anything or if the source is
    not a table, otherwise as ImportDialog::optionsFor() says, which may ask. Returns nothing if the person cancels. */
std::optional<ImportOptions> importOfSource(const QString &source,
                                            const ImportOptions &given,
                                            WindowSettings *settings,
                                            QWidget *parent = nullptr);

//! Returns the source if it is a table, whose signs a person may have to explain; otherwise null.
const FileSource *tableOf(const Source &source);
//! Returns a line for the log that says how a table is read; empty if it is read as the line protocol says.
QString importNote(const ImportOptions &import);

} // namespace Monitor
