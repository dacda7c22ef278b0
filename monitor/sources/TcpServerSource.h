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
    void poll() override;

private:
    //! Limits what peers send from the first byte on, since they may have to wait until the one before has been read.
    class Server : public QTcpServer
    {
    protected:
        void incomingConnection(qintptr descriptor) override;
    };

    void peerArrived();
    void takePeer(QTcpSocket *peer);
    void replacePeer();
    void peerGone();
    bool readPiece();
    void dropPeer();

    const QHostAddress m_address;
    const quint16 m_port;
    Server m_server;
    QPointer<QTcpSocket> m_peer;
    bool m_hasTalked = false; //!< since the last tick of the clock
    double m_replaceAt = 0.0; //!< the time at which a peer that still talks loses its place
    PieceByPiece m_pieces; //!< of what the peer sends
    SocketEnd m_end; //!< of the peer's connection
};

} // namespace Monitor
