// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>

class QLocalSocket;

namespace Corvale_Qt {

/*! A folder for locks and sockets that no other user can write to: the session's (XDG_RUNTIME_DIR), otherwise one of
    this user's own in the temporary folder, made where it is missing. Empty where neither is safe: somebody else may
    have made a folder of that name first. */
QString privateRuntimeFolder();

//! Whether the process at the other end of a connected socket is this user's.
bool isOfThisUser(const QLocalSocket &socket);

} // namespace Corvale_Qt
