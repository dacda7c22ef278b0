// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <corvale_monitor/SourcePlugin.h>
#include <optional>

namespace Monitor {

/*! Returns the header of the stream that a plugin describes. Values of a plane of strips beyond those that a plane may have are in the
    frames, but have no place. Returns nothing if the stream cannot be shown; \a error says why. */
std::optional<StreamHeader> headerOfPlugin(const CorvaleMonitor::SourceStream &stream,
                                           QString *error);

} // namespace Monitor
