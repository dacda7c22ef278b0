// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/program/CommandLine.h"

namespace Monitor {

//! Runs --repair: writes a repaired copy of a recording and prints what is lost. Returns the exit code.
int repairOnCommand(const CommandLine &commandLine);
//! Prints what is lost of a recording. Returns whether anything is but an unfinished end.
bool printDamage(const QString &path, const ImportOptions &import);

} // namespace Monitor
