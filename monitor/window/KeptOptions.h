// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/FitParameters.h"
#include "monitor/session/MonitorOptions.h"

namespace Monitor {

class WindowSettings;

//! Returns the options that were kept. From, to and loop belong to one file and are not kept.
MonitorOptions keptOptions(const WindowSettings &settings);
/*! Returns the parameters of the fits that a window's histogram shows, as its statistics page keeps them; those that it has at first of
    the others, as the window itself does. */
FitParameters keptFitParameters(const WindowSettings &settings);
//! Keeps options for the next start.
void keepOptions(const MonitorOptions &options, WindowSettings &settings);

} // namespace Monitor
