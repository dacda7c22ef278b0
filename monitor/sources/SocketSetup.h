// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

class QTcpSocket;

namespace Monitor {

/*! Prepares a connected socket for lines of readings. It reads a limited number of bytes ahead, sends without delay,
    and fails within 25 s if the peer vanished without closing the connection (a power cut, an unplugged cable). */
void setUpSocket(QTcpSocket *socket);

} // namespace Monitor
