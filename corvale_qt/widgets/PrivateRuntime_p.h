// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>

class QLocalSocket;

namespace Corvale_Qt {

/*! Returns a folder for locks and sockets that no other user can write to: the folder of the session
    (XDG_RUNTIME_DIR), or else a private folder in the temporary folder, which is created if necessary. Returns an
    empty string if neither is safe, for example because another user created a folder of that name first. */
QString privateRuntimeFolder();

//! Returns whether the process at the other end of a connected \a socket runs as this user.
bool isOfThisUser(const QLocalSocket &socket);

} // namespace Corvale_Qt
