// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

class QLocalSocket;

namespace Corvale_Qt {

/*! Decides which process of this user is the first one with a given id, and sends messages to it.

    The process that holds the lock file is the first, and listens on the socket. A process that crashes leaves
    both behind; the next process recognises the lock as stale and replaces the socket.

    Lock and socket are in a folder that no other user can write to, and each side checks the user of the other
    process. If there is no such folder, every process is the first, and a line on the debug stream says so.

    A connection carries one InstanceMessage, and the answer to it is kAnswer. A connection that sends anything else, too
    much, or an incomplete message is dropped. */
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(const QString &id, QObject *parent = nullptr);

    /*! Makes this process the first one unless another process is. Returns whether this process is first, which is also
        true if there is no safe place for a lock. */
    bool takeFirstPlace();
    //! Sends \a message to the first process; returns whether it answered within \a timeout milliseconds.
    bool send(const QString &message, int timeout);
    //! Returns the path of the socket (on Windows the name of the pipe), which depends on the user and the id only.
    QString serverName() const { return m_serverName; }

    static constexpr int kMaximumConnections = 32;
    //! A connection that has not sent its message after this time, in milliseconds, is dropped.
    static constexpr int kPatience = 10000;
    static constexpr char kAnswer[] = "ack";

Q_SIGNALS:
    void messageReceived(const QString &message);

private:
    void acceptConnections();
    void readFrom(QLocalSocket *socket);
    bool lock();
    void stayAlone(const QString &reason);

    //! The folder of the lock and the socket; empty if no folder is safe.
    const QString m_folder;
    const QString m_serverName;
    QLockFile m_lock;
    QLocalServer m_server;
    int m_connections = 0;
    bool m_isAlone = false;
};

} // namespace Corvale_Qt
