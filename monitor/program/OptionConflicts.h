// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

class QCommandLineParser;

namespace Monitor {

struct CommandLine;

/*! Returns what is wrong with options that make sense alone: two that contradict each other, or one that would do nothing
    without another. Empty if they agree. */
QString optionConflict(const CommandLine &wanted, const QCommandLineParser &parser);

} // namespace Monitor
