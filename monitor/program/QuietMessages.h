// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor {

/*! Mutes two messages that tell a user nothing: the spot map's debug lines about its bounds, one for each change
    (category corvale.beam, unless QT_LOGGING_RULES enables it), and a warning of the offscreen platform about size
    hints. */
void installQuietMessages();

} // namespace Monitor
