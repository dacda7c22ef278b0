// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SocketEnd.h"

#include "monitor/core/Text.h"

#include <QTcpSocket>

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Monitor {

SocketEnd::~SocketEnd()
{
    end();
}

void SocketEnd::watch(const QTcpSocket &socket)
{
    end();
    m_descriptor = ::fcntl(int(socket.socketDescriptor()), F_DUPFD_CLOEXEC, 0);
}

QString SocketEnd::text(bool wasReset)
{
    return wasReset ? Text::tr("the other side reset the connection instead of closing it")
                    : Text::tr("the other side closed the connection");
}

//! A connection that the other side has closed waits for this side to close it too; one that was reset is gone at once.
bool SocketEnd::wasReset() const
{
#ifdef Q_OS_LINUX
    tcp_info info = {};
    socklen_t size = sizeof(info);
    return m_descriptor >= 0 && ::getsockopt(m_descriptor, IPPROTO_TCP, TCP_INFO, &info, &size) == 0
        && info.tcpi_state == TCP_CLOSE;
#else
    return false;
#endif
}

void SocketEnd::end()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

} // namespace Monitor
