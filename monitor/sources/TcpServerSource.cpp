// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/TcpServerSource.h"

#include "monitor/core/Clock.h"
#include "monitor/sources/SocketSetup.h"

#include <utility>

namespace Monitor {

namespace {

//! Seconds for which a peer that goes on sending keeps the next one waiting.
constexpr double longestFarewell = 2.0;

} // namespace

void TcpServerSource::Server::incomingConnection(qintptr descriptor)
{
    auto *peer = new QTcpSocket(this);
    peer->setSocketDescriptor(descriptor);
    setUpSocket(peer);
    addPendingConnection(peer);
}

TcpServerSource::TcpServerSource(Clock &clock,
                                 const QHostAddress &address,
                                 quint16 port,
                                 QObject *parent)
    : LineSource(clock, parent)
    , m_address(address)
    , m_port(port)
    , m_pieces(this, [this] {
        return readPiece();
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

/*! Takes the next peer. One that is still connected loses its place: when an instrument restarts, its old connection may linger half
    open. But what it has sent is read first, because it may have left right after sending a lot. */
void TcpServerSource::peerArrived()
{
    if (isTakingLast() || !m_server.hasPendingConnections())
        return;
    if (!m_peer) {
        takePeer(m_server.nextPendingConnection());
        return;
    }
    const QPointer<TcpServerSource> alive(this); // what hears of readings may close the source
    const QTcpSocket *const former = m_peer;
    const bool talks = m_peer->bytesAvailable() > 0 || m_peer->waitForReadyRead(0);
    if (!alive || m_peer != former)
        return; // it has left, and the next one has its place
    if (!talks) {
        replacePeer();
        return;
    }
    m_hasTalked = true;
    m_replaceAt = clock().seconds() + longestFarewell;
    clock().stayAwake();
}

//! Replaces a peer that has said everything, or does not stop.
void TcpServerSource::poll()
{
    if (!m_peer || isTakingLast() || !m_server.hasPendingConnections())
        return;
    if (!std::exchange(m_hasTalked, false) || clock().seconds() >= m_replaceAt)
        replacePeer();
}

void TcpServerSource::takePeer(QTcpSocket *peer)
{
    const QPointer<TcpServerSource> alive(this); // what hears of readings may close the source
    m_peer = peer;
    connect(peer, &QTcpSocket::readyRead, this, [this] {
        m_pieces.go();
    });
    m_end.watch(*peer);
    connect(peer, &QTcpSocket::disconnected, this, &TcpServerSource::peerGone);
    connected();
    if (alive)
        m_pieces.go();
    if (alive && m_peer && m_peer->state() == QAbstractSocket::UnconnectedState)
        peerGone(); // while it waited for its turn
    if (alive)
        peerArrived();
}

void TcpServerSource::peerGone()
{
    const QByteArray rest = m_peer->readAll();
    const bool wasReset = m_end.wasReset();
    const bool endedByPeer = m_peer->error() == QAbstractSocket::RemoteHostClosedError;
    const LoggedText why = LoggedText::ofSystem(m_peer->errorString());
    dropPeer();
    const LoggedText text = LoggedText::of([&] {
        const QString how = endedByPeer ? SocketEnd::text(wasReset)
                                        : tr("the connection broke (%1)").arg(why.now());
        return QStringLiteral("%1: %2").arg(description(), how);
    });
    takeLast(rest, [this, text, inOrder = endedByPeer && !wasReset] {
        peerLeft(text, inOrder);
        peerArrived();
    });
}

void TcpServerSource::replacePeer()
{
    const QByteArray rest = m_peer->readAll();
    dropPeer();
    takeLast(rest, [this] {
        Q_EMIT noted(QStringLiteral(
                         "%1: another program has connected and takes the place of the one before")
                         .arg(description()));
        peerArrived();
    });
}

//! Returns whether more is there.
bool TcpServerSource::readPiece()
{
    if (!m_peer || m_peer->bytesAvailable() == 0)
        return false;
    m_hasTalked = true;
    const QByteArray bytes = m_peer->read(livePieceSize);
    const QPointer<TcpServerSource> alive(this); // what hears of readings may close the source
    takeBytes({bytes.constData(), std::size_t(bytes.size())});
    return alive && m_peer && m_peer->bytesAvailable() > 0;
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
