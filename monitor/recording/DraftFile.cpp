// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/DraftFile.h"

#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"

#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Monitor {

namespace {

//! Writes the directory of a file to the disk. Some file systems cannot, and need not.
void syncFolder(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

//! Gives the draft its name, without replacing a file that came meanwhile. Returns false, with errno, if that is not possible.
bool nameDraft(const QByteArray &draft, const QByteArray &target)
{
    // A hard link does not replace a file, as renaming would; not every file system has links.
    return ::link(draft.constData(), target.constData()) == 0
        || (errno != EEXIST && ::rename(draft.constData(), target.constData()) == 0);
}

bool isRegular(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

bool isNamed(const QFile &file, const QString &path)
{
    struct stat open = {}, named = {};
    return ::fstat(file.handle(), &open) == 0
        && ::stat(QFile::encodeName(path).constData(), &named) == 0 && open.st_dev == named.st_dev
        && open.st_ino == named.st_ino;
}

DraftFile::DraftFile(const QString &target)
    : m_target(target)
    , m_path(target + QLatin1String(".part"))
{
}

DraftFile::~DraftFile()
{
    discard();
}

bool DraftFile::fail(int errorNumber)
{
    m_error = LoggedText::ofSystem(qt_error_string(errorNumber)).now();
    return false;
}

bool DraftFile::create(unsigned mode)
{
    // What a link of that name points to is never written.
    if (QFileInfo(m_path).isSymLink())
        QFile::remove(m_path);
    const QByteArray name = QFile::encodeName(m_path);
    constexpr int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    const int descriptor = ::open(name.constData(), flags, mode_t(mode));
    if (descriptor < 0)
        return fail(errno);
    const bool isLocked = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    const bool isOurs = isLocked && isRegular(descriptor)
        && m_file.open(descriptor, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle)
        && isNamed(m_file, m_path);
    if (isOurs)
        return m_file.resize(0) || fail(errno);
    if (!m_file.isOpen())
        ::close(descriptor);
    m_file.close();
    m_error = Text::tr("another program writes to %1").arg(m_path);
    return false;
}

bool DraftFile::commit(bool replaces)
{
    const QByteArray from = QFile::encodeName(m_path), to = QFile::encodeName(m_target);
    if (!m_file.flush() || ::fsync(m_file.handle()) != 0)
        fail(errno);
    else if (replaces ? ::rename(from.constData(), to.constData()) != 0 : !nameDraft(from, to))
        fail(errno);
    discard();
    syncFolder(m_target);
    return m_error.isEmpty();
}

void DraftFile::discard()
{
    if (!m_file.isOpen())
        return;
    if (isNamed(m_file, m_path))
        QFile::remove(m_path);
    m_file.close();
}

} // namespace Monitor
