// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

class QTcpSocket;

namespace Monitor {

/*! Tells how the other side ended a TCP connection. Qt reports a reset (RST) as if the other side had closed the connection (FIN), and its
    descriptor is closed by then. A second one keeps what the system knows until end() is called, and the connection with it. */
class SocketEnd
{
public:
    SocketEnd() = default;
    ~SocketEnd();
    SocketEnd(const SocketEnd &) = delete;
    SocketEnd &operator=(const SocketEnd &) = delete;

    //! Begins with a socket that is connected.
    void watch(const QTcpSocket &socket);
    //! Returns whether the other side has reset the connection; false where the system does not tell.
    bool wasReset() const;
    //! Returns how the other side has ended a connection, in the language in which texts are made at present.
    static QString text(bool wasReset);
    //! Lets the connection go; call it wherever the socket is closed.
    void end();

private:
    int m_descriptor = -1;
};

} // namespace Monitor
