// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor {

/*! Leaves the library's debug lines out of the program's own messages, unless QT_LOGGING_RULES asks for them, and a
    remark of the platform that pictures are made on. */
void installQuietMessages();

} // namespace Monitor
