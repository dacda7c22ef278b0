// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/WriteTurn_p.h"

#ifdef Q_OS_UNIX

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace Corvale_Qt {

namespace {

constexpr int kPatience = 10000; // in milliseconds
constexpr int kPause = 2; // in milliseconds

//! Returns the timer that runs since the end of the last turn of this process.
QElapsedTimer &sinceLastTurn()
{
    static QElapsedTimer timer;
    return timer;
}

//! Pauses if the last turn of this process has just ended, so that a process that waits can take the next one.
void letOthersGoFirst()
{
    constexpr int kPauses = 4;
    if (sinceLastTurn().isValid() && !sinceLastTurn().hasExpired(kPauses * kPause))
        QThread::msleep(kPauses * kPause);
}

} // namespace

WriteTurn::WriteTurn(const QString &folder)
    : m_folder(::open(QFile::encodeName(folder), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_folder < 0)
        return;
    letOthersGoFirst();
    const QDeadlineTimer deadline(kPatience);
    // A blocking call would wait without limit for a process that hangs in its turn.
    while (::flock(m_folder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK
           && !deadline.hasExpired())
        QThread::msleep(kPause);
}

WriteTurn::~WriteTurn()
{
    if (m_folder < 0)
        return;
    ::close(m_folder);
    sinceLastTurn().start();
}

} // namespace Corvale_Qt

#else

namespace Corvale_Qt {

WriteTurn::WriteTurn(const QString &) { }
WriteTurn::~WriteTurn() = default;

} // namespace Corvale_Qt

#endif
