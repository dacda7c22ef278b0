// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SocketSetup.h"

#include <QTcpSocket>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace Monitor {

namespace {

void setTcpOption(const QTcpSocket &socket, int option, int value)
{
    ::setsockopt(int(socket.socketDescriptor()), IPPROTO_TCP, option, &value, sizeof(value));
}

//! The system's own settings let two hours pass before it asks a silent peer.
void findLostPeer(const QTcpSocket &socket)
{
#ifdef Q_OS_LINUX
    constexpr int silence = 10, interval = 5, attempts = 3; // s
    constexpr int unacknowledged = 25000; // ms, for a question that nobody takes
    setTcpOption(socket, TCP_KEEPIDLE, silence);
    setTcpOption(socket, TCP_KEEPINTVL, interval);
    setTcpOption(socket, TCP_KEEPCNT, attempts);
    setTcpOption(socket, TCP_USER_TIMEOUT, unacknowledged);
#else
    Q_UNUSED(socket)
#endif
}

} // namespace

void setUpSocket(QTcpSocket *socket)
{
    // What the window cannot take stays with the sender, not in this program's memory.
    constexpr qint64 readBufferSize = 1024 * 1024;
    socket->setReadBufferSize(readBufferSize);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    findLostPeer(*socket);
}

} // namespace Monitor
