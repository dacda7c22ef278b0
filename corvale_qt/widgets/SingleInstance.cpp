// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/InstanceMessage_p.h"
#include "corvale_qt/widgets/Logging_p.h"
#include "corvale_qt/widgets/PrivateRuntime_p.h"
#include "corvale_qt/widgets/SingleInstance_p.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QSysInfo>
#include <QThread>
#include <QTimer>

namespace Corvale_Qt {

namespace {

/*! Returns a short file name, since the path of a socket is limited to about a hundred bytes. The id is hashed
    because it may contain characters that a file name must not. */
QString nameFor(const QString &id)
{
    const QByteArray user = QDir::homePath().toUtf8();
    const QByteArray hash =
        QCryptographicHash::hash(user + '\0' + id.toUtf8(), QCryptographicHash::Sha256);
    return "qtsingleapp-" + hash.left(12).toHex();
}

QString serverNameFor(const QString &folder, const QString &id)
{
#ifdef Q_OS_WIN
    Q_UNUSED(folder)
    return nameFor(id);
#else
    return folder + '/' + nameFor(id);
#endif
}

bool connectBefore(QLocalSocket &socket, const QString &serverName, const QDeadlineTimer &deadline)
{
    // The first instance may hold the lock already and not listen yet.
    constexpr int kPause = 20;
    for (;;) {
        socket.connectToServer(serverName);
        if (socket.waitForConnected(int(deadline.remainingTime())))
            return true;
        if (deadline.hasExpired())
            return false;
        QThread::msleep(kPause);
    }
}

} // namespace

SingleInstance::SingleInstance(const QString &id, QObject *parent)
    : QObject(parent)
    , m_folder(privateRuntimeFolder())
    , m_serverName(serverNameFor(m_folder, id))
    , m_lock(m_folder + '/' + nameFor(id) + ".lock")
{
    // The lock is held as long as the program runs; it is stale only if its owner has ended, at whatever age.
    m_lock.setStaleLockTime(0);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::acceptConnections);
}

bool SingleInstance::lock()
{
    constexpr int kPatienceForLock = 100;
    if (m_lock.tryLock(kPatienceForLock))
        return true;
    if (m_lock.error() != QLockFile::LockFailedError)
        return false;
    qint64 pid = 0;
    QString host;
    QString program;
    const bool isReadable = m_lock.getLockInfo(&pid, &host, &program);
    if (isReadable && host == QSysInfo::machineHostName())
        return false;
    // The file is damaged, or was written before the machine was renamed. A file whose owner is running cannot be
    // removed.
    return m_lock.removeStaleLockFile() && m_lock.tryLock(0);
}

bool SingleInstance::takeFirstPlace()
{
    if (m_lock.isLocked() || m_isAlone)
        return true;
    if (m_folder.isEmpty()) {
        stayAlone("there is no folder that other users cannot write to");
        return true;
    }
    if (!lock()) {
        if (m_lock.error() == QLockFile::LockFailedError)
            return false;
        stayAlone("no lock file can be written in " + m_folder);
        return true;
    }
    QLocalServer::removeServer(m_serverName);
    if (!m_server.listen(m_serverName))
        qCWarning(widgetsLog).noquote()
            << "QtSingleApplication: cannot listen:" << m_server.errorString();
    return true;
}

//! Lets this process run as a first one without a lock, since running twice is better than not running at all.
void SingleInstance::stayAlone(const QString &reason)
{
    m_isAlone = true;
    qCWarning(widgetsLog).noquote()
        << "QtSingleApplication: this program may run several times, since" << reason;
}

bool SingleInstance::send(const QString &message, int timeout)
{
    if (m_folder.isEmpty())
        return false;
    const QByteArray bytes = InstanceMessage::toBytes(message);
    if (bytes.isEmpty()) {
        qCDebug(widgetsLog) << "QtSingleApplication: a message of" << message.toUtf8().size()
                            << "bytes is too long to send";
        return false;
    }
    const QDeadlineTimer deadline(timeout);
    QLocalSocket socket;
    if (!connectBefore(socket, m_serverName, deadline))
        return false;
    if (!isOfThisUser(socket)) {
        qCWarning(widgetsLog) << "QtSingleApplication: another user listens at" << m_serverName;
        return false;
    }
    socket.write(bytes);
    while (socket.bytesToWrite() > 0)
        if (!socket.waitForBytesWritten(int(deadline.remainingTime())))
            return false;
    constexpr int size = sizeof kAnswer - 1;
    while (socket.bytesAvailable() < size)
        if (!socket.waitForReadyRead(int(deadline.remainingTime())))
            return false;
    return socket.read(size) == kAnswer;
}

void SingleInstance::acceptConnections()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        if (m_connections >= kMaximumConnections || !isOfThisUser(*socket)) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        ++m_connections;
        connect(socket, &QObject::destroyed, this, [this] {
            --m_connections;
        });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            readFrom(socket);
        });
        QTimer::singleShot(kPatience, socket, &QLocalSocket::abort);
        socket->setReadBufferSize(InstanceMessage::kMaximumSize + InstanceMessage::kHeadSize);
        readFrom(socket);
    }
}

//! Answers a message when it is complete, and announces it afterwards, since a slot may take long.
void SingleInstance::readFrom(QLocalSocket *socket)
{
    QString message;
    const InstanceMessage::State state = InstanceMessage::take(*socket, &message);
    if (state == InstanceMessage::State::TooLong)
        socket->abort();
    if (state != InstanceMessage::State::Complete)
        return;
    // A connection carries one message.
    socket->disconnect(this);
    connect(socket, &QObject::destroyed, this, [this] {
        --m_connections;
    });
    socket->write(kAnswer);
    socket->flush();
    socket->disconnectFromServer();
    Q_EMIT messageReceived(message);
}

} // namespace Corvale_Qt
