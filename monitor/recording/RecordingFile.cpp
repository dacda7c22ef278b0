// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingFile.h"

#include "monitor/core/Text.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Monitor {

RecordingFile::~RecordingFile()
{
    close();
}

bool RecordingFile::fail(int errorNumber)
{
    m_errorNumber = errorNumber;
    return false;
}

LoggedText RecordingFile::error() const
{
    return m_errorNumber == 0 ? m_error : LoggedText::ofSystem(qt_error_string(m_errorNumber));
}

bool RecordingFile::open(const QString &path, Existing existing, unsigned mode)
{
    close();
    m_path = path;
    m_size = 0;
    m_error = {};
    m_errorNumber = 0;
    // Without O_NONBLOCK, a pipe without a reader would block the program.
    const int flags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK
        | (existing == Existing::Refuse ? O_EXCL : 0);
    const QByteArray name = QFile::encodeName(path);
    m_descriptor = ::open(name.constData(), flags | O_NOFOLLOW, mode_t(mode));
    if (m_descriptor < 0 && errno == ELOOP) {
        if (isForeignLink()) {
            m_error = LoggedText::of([] {
                return Text::tr("it is a link of another user");
            });
            return false;
        }
        m_descriptor = ::open(name.constData(), flags, mode_t(mode));
    }
    if (m_descriptor < 0)
        return fail(errno);
    // The file is emptied only under the lock: until then another recorder may be writing to it.
    const bool emptied = lock() && (::ftruncate(m_descriptor, 0) == 0 || errno == EINVAL);
    if (emptied)
        return true;
    if (m_error.isEmpty())
        fail(errno);
    ::close(m_descriptor);
    m_descriptor = -1;
    return false;
}

/*! Returns whether the path is a link that somebody else made, in a folder for everybody. It may lead to any file of this
    user, which would be emptied. Links of the system, such as /dev/stdout, lead where they should. */
bool RecordingFile::isForeignLink() const
{
    struct stat link = {};
    return ::lstat(QFile::encodeName(m_path).constData(), &link) == 0 && S_ISLNK(link.st_mode)
        && link.st_uid != ::geteuid() && link.st_uid != 0;
}

bool RecordingFile::lock()
{
    // On a file system without locks, recording without one is better than not recording.
    if (::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK)
        return true;
    m_error = LoggedText::of([] {
        return Text::tr("another recorder is writing to it, or it is being compressed");
    });
    return false;
}

qint64 RecordingFile::append(const char *data, qint64 size)
{
    qint64 taken = 0;
    while (taken < size) {
        const ssize_t written = ::write(m_descriptor, data + taken, std::size_t(size - taken));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            fail(written < 0 ? errno : ENOSPC);
            break;
        }
        taken += written;
    }
    m_size += taken;
    return taken;
}

bool RecordingFile::close()
{
    if (m_descriptor < 0)
        return true;
    const bool closed = ::close(m_descriptor) == 0 || errno == EINTR;
    m_descriptor = -1;
    return closed || fail(errno);
}

RecordingFile::Displacement RecordingFile::displacement() const
{
    struct stat named = {};
    struct stat own = {};
    if (::fstat(m_descriptor, &own) != 0)
        return Displacement::None;
    if (::stat(QFile::encodeName(m_path).constData(), &named) != 0) {
        const bool isGone = errno == ENOENT || errno == ENOTDIR || errno == ESTALE;
        return isGone ? Displacement::Gone : Displacement::None;
    }
    if (named.st_dev != own.st_dev || named.st_ino != own.st_ino)
        return Displacement::Replaced;
    const bool changed = S_ISREG(own.st_mode) && own.st_size != m_size;
    return changed ? Displacement::Changed : Displacement::None;
}

QString RecordingFile::text(Displacement displacement)
{
    switch (displacement) {
    case Displacement::None:
        break;
    case Displacement::Gone:
        return Text::tr("was removed or renamed");
    case Displacement::Replaced:
        return Text::tr("was replaced by another file");
    case Displacement::Changed:
        return Text::tr("was changed by another program");
    }
    return {};
}

} // namespace Monitor
