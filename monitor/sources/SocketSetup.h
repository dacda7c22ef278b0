// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

class QTcpSocket;

namespace Monitor {

/*! Readies a connected socket for lines of readings: it reads no further ahead than the window can take, waits for no
    further bytes before it sends, and fails within 25 s where the other side has vanished without a word (its power is
    cut, a cable is pulled). */
void setUpSocket(QTcpSocket *socket);

} // namespace Monitor
