// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/RunReport.h"

#include "monitor/core/CrashHandler.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Monitor {

namespace {

const QString windowNote = QStringLiteral("window");
constexpr qint64 largestReport = qint64(256) * 1024;
constexpr qint64 largestNotes = qint64(64) * 1024;
//! How many runs that left no word wait for the next start with their settings.
constexpr int mostWaiting = 20;

QFileInfoList filesIn(const QString &folder, const char *suffix)
{
    return QDir(folder).entryInfoList({QStringLiteral("*.") + QLatin1String(suffix)},
                                      QDir::Files | QDir::NoSymLinks,
                                      QDir::Time);
}

void removeBeyond(int most, const QFileInfoList &newestFirst)
{
    for (int i = most; i < newestFirst.size(); ++i)
        QFile::remove(newestFirst[i].filePath());
}

//! A report that an ended run left, under the lock that the run held.
class LeftReport
{
public:
    explicit LeftReport(const QString &path)
        : m_path(path)
        , m_descriptor(
              ::open(QFile::encodeName(path), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK))
    {
        struct stat file = {}, named = {};
        m_isLeft = m_descriptor >= 0 && ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0
            && ::fstat(m_descriptor, &file) == 0 && S_ISREG(file.st_mode)
            && file.st_uid == ::geteuid()
            // Another process may have put it away just before.
            && ::stat(QFile::encodeName(path), &named) == 0 && named.st_ino == file.st_ino;
    }
    ~LeftReport()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    LeftReport(const LeftReport &) = delete;
    LeftReport &operator=(const LeftReport &) = delete;

    //! Returns whether its run has ended, and no other process reads it.
    bool isLeft() const { return m_isLeft; }
    FormerRun read() const;
    //! Keeps the report of a crash under a name that is not read again, and removes any other.
    void putAway(FormerRun *run) const;

private:
    const QString m_path;
    const int m_descriptor;
    bool m_isLeft = false;
};

FormerRun LeftReport::read() const
{
    FormerRun run;
    QFile file;
    if (!file.open(m_descriptor, QFile::ReadOnly))
        return run;
    const QString text = QString::fromUtf8(file.read(largestReport));
    const QStringList lines = text.left(largestNotes).split(QLatin1Char('\n'));
    run.began = QDateTime::fromString(lines.value(0).section(QLatin1Char(' '), -1), Qt::ISODate);
    for (int i = 1; i < lines.size() && !lines[i].isEmpty(); ++i)
        run.notes[lines[i].section(QStringLiteral(": "), 0, 0)] =
            lines[i].section(QStringLiteral(": "), 1);
    const QString mark = QLatin1Char('\n') + QLatin1String(CrashHandler::mark);
    const int at = text.indexOf(mark);
    if (at < 0)
        return run;
    run.reason = text.mid(at + mark.size()).section(QLatin1Char('\n'), 0, 0);
    run.crashed = QFileInfo(m_path).lastModified();
    return run;
}

void LeftReport::putAway(FormerRun *run) const
{
    const QString kept = m_path.section(QLatin1Char('.'), 0, -2) + QStringLiteral(".txt");
    if (run->crashed.isValid() && QFile::rename(m_path, kept))
        run->report = kept;
    else
        QFile::remove(m_path);
}

} // namespace

RunReport::RunReport(const QString &window)
{
    const QString folder = RunReport::folder();
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return;
    constexpr auto own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QFile::setPermissions(folder, own);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    m_path = QDir(folder).filePath(now.toString(QStringLiteral("'run-'yyyyMMdd-HHmmss-zzz-"))
                                   + QString::number(::getpid()));
    // It has no suffix before it is locked, so that nobody takes it for one that was left.
    m_descriptor = ::open(QFile::encodeName(m_path), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (m_descriptor < 0)
        return;
    ::flock(m_descriptor, LOCK_EX | LOCK_NB);
    const QString locked = m_path + QStringLiteral(".run");
    if (::rename(QFile::encodeName(m_path), QFile::encodeName(locked)) == 0)
        m_path = locked;
    m_title = "corvale-monitor " CORVALE_MONITOR_VERSION ", Qt " + QByteArray(qVersion())
        + ", process " + QByteArray::number(::getpid()) + ", began at "
        + now.toString(Qt::ISODate).toUtf8();
    note(windowNote, window);
    write();
    CrashHandler::install(m_descriptor);
}

RunReport::~RunReport()
{
    if (!isOpen())
        return;
    CrashHandler::forgetFile();
    QFile::remove(m_path);
    ::close(m_descriptor);
}

QString RunReport::folder()
{
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (QDir::isAbsolutePath(state))
        return QDir(state).filePath(QStringLiteral("Corvale/runs"));
    const QDir home = QDir::home(); // the root folder for a user without one
    return home.isRoot() ? QString() : home.filePath(QStringLiteral(".local/state/Corvale/runs"));
}

void RunReport::note(const QString &name, const QString &text)
{
    if (text.isEmpty() || text.contains(QLatin1Char('\n')))
        m_notes.remove(name);
    else
        m_notes[name] = text;
    write();
}

void RunReport::write()
{
    if (!isOpen())
        return;
    QByteArray bytes = m_title + '\n';
    for (auto note = m_notes.cbegin(); note != m_notes.cend(); ++note)
        bytes += (note.key() + QStringLiteral(": ") + note.value()).toUtf8() + '\n';
    const ssize_t written = ::pwrite(m_descriptor, bytes.constData(), std::size_t(bytes.size()), 0);
    // On a full disk the former notes would be mixed with a part of these.
    const bool isWhole = written == ssize_t(bytes.size());
    static_cast<void>(::ftruncate(m_descriptor, isWhole ? off_t(bytes.size()) : 0) == 0);
}

QVector<FormerRun> FormerRun::take(const QString &window)
{
    QVector<FormerRun> runs;
    QFileInfoList waiting;
    if (RunReport::folder().isEmpty())
        return runs;
    for (const QFileInfo &info : filesIn(RunReport::folder(), "run")) {
        const LeftReport left(info.filePath());
        if (!left.isLeft())
            continue;
        FormerRun run = left.read();
        if (run.notes.value(windowNote) != window) {
            waiting.append(info);
            continue;
        }
        left.putAway(&run);
        runs.prepend(run);
    }
    removeBeyond(mostWaiting, waiting);
    removeBeyond(mostReports, filesIn(RunReport::folder(), "txt"));
    return runs;
}

} // namespace Monitor
