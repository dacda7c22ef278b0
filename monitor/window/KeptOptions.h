// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/MonitorOptions.h"

namespace Monitor {

class WindowSettings;

//! Returns the options that were kept. From, to and loop belong to one file and are not kept.
MonitorOptions keptOptions(const WindowSettings &settings);
//! Keeps options for the next start.
void keepOptions(const MonitorOptions &options, WindowSettings &settings);

} // namespace Monitor
