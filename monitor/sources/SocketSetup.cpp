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

//! Makes the system probe a silent peer early; by default it waits for two hours.
void findLostPeer(const QTcpSocket &socket)
{
#ifdef Q_OS_LINUX
    constexpr int silence = 10, interval = 5, attempts = 3; // s
    constexpr int unacknowledged = 25000; // ms, for sent bytes that are not acknowledged
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
    // Bytes that the program cannot process yet stay with the sender and do not fill the program's memory.
    constexpr qint64 readBufferSize = qint64(1024) * 1024;
    socket->setReadBufferSize(readBufferSize);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    findLostPeer(*socket);
}

} // namespace Monitor
