// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/Companions.h"
#include "monitor/window/StatusField.h"

namespace Monitor {

//! Returns what is abnormal about one of the sources that are read together: alarms, connection, recording, clock.
QVector<StatusField::Part> memberNotices(const Companions::Member &member);
//! Returns that the clock of a source differs from this computer's; nothing while it agrees.
std::optional<StatusField::Part> clockNotice(const StreamClock &clock);

} // namespace Monitor
