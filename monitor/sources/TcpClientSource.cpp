// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/TcpClientSource.h"

#include "monitor/core/Clock.h"
#include "monitor/sources/SocketSetup.h"

#include <QPointer>

#include <algorithm>

namespace Monitor {

namespace {

//! An answer may take this many intervals.
constexpr double intervalsOfPatience = 3.0;

} // namespace

TcpClientSource::TcpClientSource(Clock &clock,
                                 const QString &host,
                                 quint16 port,
                                 const Question &question,
                                 QObject *parent)
    : LineSource(clock, parent)
    , m_host(host)
    , m_port(port)
    , m_question(question)
    , m_pieces(this, [this] {
        return readPiece();
    })
{
    connect(&m_socket, &QTcpSocket::connected, this, &TcpClientSource::socketConnected);
    connect(&m_socket, &QTcpSocket::readyRead, this, [this] {
        m_pieces.go();
    });
    connect(&m_socket,
            QOverload<QAbstractSocket::SocketError>::of(&QAbstractSocket::errorOccurred),
            this,
            &TcpClientSource::socketFailed);
    connect(&clock, &Clock::tick, this, &TcpClientSource::giveUpLookup);
    if (!question.text.isEmpty())
        setLongestSilence(std::max(usualSilence, intervalsOfPatience * question.every));
}

TcpClientSource::~TcpClientSource()
{
    m_socket.disconnect(this);
}

QString TcpClientSource::description() const
{
    return QStringLiteral("tcp://%1:%2").arg(m_host, QString::number(m_port));
}

QString TcpClientSource::remedy() const
{
    return tr("Check that the instrument is switched on and reachable, that the port is right, and "
              "whether the instrument must be asked (?ask=TEXT).");
}

void TcpClientSource::open()
{
    close();
    m_openedAt = clock().seconds();
    m_socket.connectToHost(m_host, m_port);
}

//! Aborting the socket reports no error, so that lost() is not called.
void TcpClientSource::close()
{
    m_up = false;
    m_socket.abort();
    m_end.end();
}

void TcpClientSource::socketConnected()
{
    setUpSocket(&m_socket);
    m_end.watch(m_socket);
    m_up = true;
    m_answered = true;
    connected();
    ask();
}

//! Returns whether more is there.
bool TcpClientSource::readPiece()
{
    if (m_socket.bytesAvailable() == 0)
        return false; // the connection was lost since, and its rest was taken then
    const QByteArray bytes = m_socket.read(livePieceSize);
    m_answered = m_answered || bytes.contains('\n') || bytes.contains('\r');
    const QPointer<TcpClientSource> alive(this); // what hears of readings may close the source
    takeBytes({bytes.constData(), std::size_t(bytes.size())});
    return alive && m_socket.bytesAvailable() > 0;
}

void TcpClientSource::socketFailed()
{
    const bool wasReset = m_end.wasReset();
    const bool endedByPeer = m_socket.error() == QAbstractSocket::RemoteHostClosedError;
    const LoggedText why = LoggedText::ofSystem(m_socket.errorString());
    const LoggedText came = LoggedText::of([&] {
        return endedByPeer ? SocketEnd::text(wasReset) : why.now();
    });
    m_end.end();
    m_up = false;
    takeLast(m_socket.readAll(), [this, came, inOrder = endedByPeer && !wasReset] {
        lostBecause(came, inOrder);
    });
}

//! Qt looks for names in threads and waits without end for the answer, which never comes if such a thread cannot start.
void TcpClientSource::giveUpLookup()
{
    const bool isSearching = m_socket.state() == QAbstractSocket::HostLookupState;
    if (!isSearching || clock().seconds() - m_openedAt < longestLookup)
        return;
    close();
    lostBecause(LoggedText::of([] {
        return tr("its name was not resolved in time");
    }));
}

void TcpClientSource::poll()
{
    ask();
}

void TcpClientSource::ask()
{
    if (m_question.text.isEmpty() || !m_up)
        return;
    clock().stayAwake(); // the questions are asked in time
    // If an answer never comes, the next question is asked all the same.
    const double now = clock().seconds();
    const double patience = std::max(1.0, intervalsOfPatience * m_question.every);
    const bool due = now - m_askedAt >= (m_answered ? m_question.every : patience);
    if (!due && m_askedAt > 0.0)
        return;
    m_askedAt = now;
    m_answered = false;
    m_socket.write(m_question.text + '\n');
}

} // namespace Monitor
