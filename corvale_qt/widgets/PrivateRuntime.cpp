// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/PrivateRuntime_p.h"

#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>
#endif

namespace Corvale_Qt {

#ifdef Q_OS_UNIX

namespace {

enum LinkPolicy {
    FollowLinks,
    RefuseLinks
};

//! Returns whether \a path is a folder that this user owns and that has none of the permissions in \a refused.
bool isOwnFolder(const QString &path, mode_t refused, LinkPolicy links)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat info = {};
    const int result = links == FollowLinks ? ::stat(name, &info) : ::lstat(name, &info);
    return result == 0 && S_ISDIR(info.st_mode) && info.st_uid == ::geteuid()
        && (info.st_mode & refused) == 0;
}

} // namespace

QString privateRuntimeFolder()
{
    QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (QDir::isAbsolutePath(session) && isOwnFolder(session, S_IWGRP | S_IWOTH, FollowLinks))
        return session;
    // QStandardPaths has a fallback too, but follows a link that any user may have created.
    const QString own =
        QString("%1/corvale_qt-%2").arg(QDir::tempPath(), QString::number(::geteuid()));
    ::mkdir(QFile::encodeName(own), S_IRWXU);
    return isOwnFolder(own, S_IRWXG | S_IRWXO, RefuseLinks) ? own : QString();
}

bool isOfThisUser(const QLocalSocket &socket)
{
    const int descriptor = int(socket.socketDescriptor());
#ifdef SO_PEERCRED
    struct ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0
        && peer.uid == ::geteuid();
#else
    uid_t user = 0;
    gid_t group = 0;
    return ::getpeereid(descriptor, &user, &group) == 0 && user == ::geteuid();
#endif
}

#else

QString privateRuntimeFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

bool isOfThisUser(const QLocalSocket &)
{
    return true; // The pipe accepts only processes of this user.
}

#endif

} // namespace Corvale_Qt
