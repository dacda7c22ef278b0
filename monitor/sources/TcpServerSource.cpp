// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/TcpServerSource.h"

#include "monitor/sources/SocketSetup.h"

namespace Monitor {

TcpServerSource::TcpServerSource(Clock &clock,
                                 const QHostAddress &address,
                                 quint16 port,
                                 QObject *parent)
    : LineSource(clock, parent)
    , m_address(address)
    , m_port(port)
    , m_pieces(this, [this] {
        return readPiece(m_peer);
    })
{
    connect(&m_server, &QTcpServer::newConnection, this, &TcpServerSource::peerArrived);
}

TcpServerSource::~TcpServerSource()
{
    dropPeer();
}

QString TcpServerSource::description() const
{
    return QStringLiteral("tcp-listen://%1:%2").arg(m_address.toString(), QString::number(m_port));
}

QString TcpServerSource::remedy() const
{
    return tr("Check that no other program listens on this port, that the address belongs to this "
              "machine, and that the sender uses the same port.");
}

quint16 TcpServerSource::port() const
{
    return m_server.serverPort();
}

void TcpServerSource::open()
{
    if (m_server.isListening())
        return; // a peer has gone, but the next one can still connect
    if (!m_server.listen(m_address, m_port))
        lostBecause(LoggedText::ofSystem(m_server.errorString()));
    else if (!m_address.isLoopback())
        Q_EMIT noted(
            QStringLiteral(
                "WARNING: %1 accepts readings from any machine that reaches this one; listen on "
                "127.0.0.1 unless you want that")
                .arg(description()));
}

//! The port stays open for the next peer.
void TcpServerSource::close()
{
    dropPeer();
}

void TcpServerSource::peerArrived()
{
    while (QTcpSocket *peer = m_server.nextPendingConnection()) {
        replacePeer();
        m_peer = peer;
        setUpSocket(peer);
        connect(peer, &QTcpSocket::readyRead, this, [this] {
            m_pieces.go();
        });
        m_end.watch(*peer);
        connect(peer, &QTcpSocket::disconnected, this, [this, peer] {
            peerGone(peer);
        });
        connected();
        m_pieces.go();
    }
}

void TcpServerSource::peerGone(QTcpSocket *peer)
{
    readAll(peer);
    const bool wasReset = m_end.wasReset();
    const bool endedByPeer = peer->error() == QAbstractSocket::RemoteHostClosedError;
    const LoggedText why = LoggedText::ofSystem(peer->errorString());
    dropPeer();
    const LoggedText text = LoggedText::of([&] {
        QString how = tr("the connection broke (%1)").arg(why.now());
        if (endedByPeer)
            how = wasReset ? tr("the peer reset the connection instead of closing it")
                           : tr("the peer closed the connection");
        return QStringLiteral("%1: %2").arg(description(), how);
    });
    peerLeft(text, endedByPeer && !wasReset);
}

/*! Drops the peer whose place another one takes: when an instrument restarts, its old connection may linger half open.
    What the peer has sent before is read first, because it may have come and gone within one turn of the event loop. */
void TcpServerSource::replacePeer()
{
    if (!m_peer)
        return;
    m_peer->disconnect(this);
    readAll(m_peer);
    m_peer->waitForReadyRead(0); // takes what the system holds, and does not wait for more
    readAll(m_peer);
    dropPeer();
    Q_EMIT noted(QStringLiteral("%1: a new peer replaces the old one").arg(description()));
}

//! Returns whether more is there.
bool TcpServerSource::readPiece(QTcpSocket *peer)
{
    if (!peer || peer != m_peer || peer->bytesAvailable() == 0)
        return false;
    const QByteArray bytes = peer->read(livePieceSize);
    const QPointer<TcpServerSource> alive(this); // what hears of readings may close the source
    takeBytes({bytes.constData(), std::size_t(bytes.size())});
    return alive && peer == m_peer && peer->bytesAvailable() > 0;
}

void TcpServerSource::readAll(QTcpSocket *peer)
{
    while (readPiece(peer)) { }
}

void TcpServerSource::dropPeer()
{
    if (!m_peer)
        return;
    m_peer->disconnect(this);
    m_peer->abort();
    m_peer->deleteLater();
    m_peer.clear();
    m_end.end();
}

} // namespace Monitor
