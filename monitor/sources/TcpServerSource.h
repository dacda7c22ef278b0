// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/LineSource.h"
#include "monitor/sources/PieceByPiece.h"
#include "monitor/sources/SocketEnd.h"

#include <QHostAddress>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

namespace Monitor {

//! Lines from a peer that connects to a port of this machine. A newer peer replaces the one before.
class TcpServerSource : public LineSource
{
    Q_OBJECT

public:
    TcpServerSource(Clock &clock,
                    const QHostAddress &address,
                    quint16 port,
                    QObject *parent = nullptr);
    ~TcpServerSource() override;
    QString description() const override;
    QString remedy() const override;
    //! Returns the port on which it listens, also if port 0 was requested; 0 while it does not listen.
    quint16 port() const;

protected:
    void open() override;
    void close() override;

private:
    void peerArrived();
    void replacePeer();
    void peerGone(QTcpSocket *peer);
    bool readPiece(QTcpSocket *peer);
    void readAll(QTcpSocket *peer);
    void dropPeer();

    const QHostAddress m_address;
    const quint16 m_port;
    QTcpServer m_server;
    QPointer<QTcpSocket> m_peer;
    PieceByPiece m_pieces; //!< of what the peer sends
    SocketEnd m_end; //!< of the peer's connection
};

} // namespace Monitor
