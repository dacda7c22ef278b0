// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"

#include <QString>

#include <optional>

class QWidget;

namespace Monitor {

class WindowSettings;

/*! Returns how a source, as the command line has it, is to be read: as \a given if that says anything or if the source is no
    table, otherwise as ImportDialog::optionsFor() says, which may ask. Returns nothing if the person cancels. */
std::optional<ImportOptions> importOfSource(const QString &source,
                                            const ImportOptions &given,
                                            WindowSettings *settings,
                                            QWidget *parent = nullptr);

} // namespace Monitor
