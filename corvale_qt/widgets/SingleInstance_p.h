// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

class QLocalSocket;

namespace Corvale_Qt {

/*! Decides which process of this user is the first with a given id, and carries texts to it.

    Who holds the lock file is first, and listens on the socket. A process that dies leaves both behind: the
    lock is then seen to be stale, and the socket is made anew.

    Lock and socket lie in a folder that no other user can write to, and both sides look whose process the other
    one is. Where there is no such folder, every process is the first, with a line on the debug stream.

    A message is a 32-bit length, big endian, and that many bytes of UTF-8, at most kMaximumMessage; it is
    answered by kAnswer. A connection that brings something else, too much, or half a message is dropped. */
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(const QString &id, QObject *parent = nullptr);

    //! Takes the first place when it is free or cannot be shared; false when another process has it.
    bool takeFirstPlace();
    //! Brings \a message to the first instance within \a timeout milliseconds; true when it was answered.
    bool send(const QString &message, int timeout);
    //! Path of the socket (on Windows the name of the pipe), the same for all processes of this user and id.
    QString serverName() const { return m_serverName; }

    static constexpr int kMaximumMessage = 1024 * 1024;
    static constexpr int kMaximumConnections = 32;
    //! A sender that is silent for so long in the middle of a message, in milliseconds, is dropped.
    static constexpr int kPatience = 10000;
    static const QByteArray kAnswer;

Q_SIGNALS:
    void messageReceived(const QString &message);

private:
    void acceptConnections();
    void readFrom(QLocalSocket *socket);
    bool lock();
    void stayAlone(const QString &reason);

    //! Of the lock and the socket; empty where none is safe.
    const QString m_folder;
    const QString m_serverName;
    QLockFile m_lock;
    QLocalServer m_server;
    int m_connections = 0;
    bool m_isAlone = false;
};

} // namespace Corvale_Qt
