// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/program/CommandLine.h"

namespace Monitor {

struct RecordingDamage;

//! Runs --repair: writes a repaired copy of a recording and prints what is lost. Returns the exit code.
int repairOnCommand(const CommandLine &commandLine);
//! Returns a line for each place where something is lost of a recording.
QStringList damageLines(const RecordingDamage &damage);

} // namespace Monitor
