// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/RVXApplicationSettings.h"

#include "corvale_qt/settings/XmlSettingsFormat_p.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QLoggingCategory>
#include <QSettings>
#include <QTemporaryFile>
#include <QThread>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace Corvale_Qt {

namespace {

Q_LOGGING_CATEGORY(settingsLog, "corvale.settings")

/*! The turn of this process to write files in a folder; it ends with the object. Other processes wait for their turn.

    QSettings locks its file, but after each failed try it waits longer, up to five seconds. Of three processes that
    wrote all the time, one got the lock every nine seconds, and its window froze meanwhile. Processes that take turns
    find the lock free.

    A turn does not exclude others: after ten seconds, or on a system without such locks, the process writes anyway. */
class WriteTurn
{
public:
    //! Waits for the turn of this process, at most ten seconds.
    explicit WriteTurn(const QString &folder);
    ~WriteTurn();
    Q_DISABLE_COPY(WriteTurn)

private:
    int m_folder = -1;
};

#ifdef Q_OS_UNIX

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
    constexpr int kBreak = 4 * kPause;
    if (sinceLastTurn().isValid() && !sinceLastTurn().hasExpired(kBreak))
        QThread::msleep(kBreak);
}

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

#else

WriteTurn::WriteTurn(const QString &) { }
WriteTurn::~WriteTurn() = default;

#endif

QSettings::Format xmlFormat()
{
    // Registering the same functions again would use up another of the sixteen formats that Qt supports.
    static QSettings::Format format = QSettings::InvalidFormat;
    if (format == QSettings::InvalidFormat)
        format =
            QSettings::registerFormat("xui", readXmlSettings, writeXmlSettings, Qt::CaseSensitive);
    return format;
}

bool isReadableIni(const QByteArray &contents)
{
    // This parses a copy, because a QSettings on the file itself would answer from the cache of the process.
    QTemporaryFile copy;
    if (!copy.open() || copy.write(contents) != contents.size() || !copy.flush())
        return true;
    QSettings probe(copy.fileName(), QSettings::IniFormat);
    probe.allKeys(); // QSettings parses groups only on demand
    return probe.status() != QSettings::FormatError;
}

bool isReadable(QFile &file, QSettings::Format format)
{
    if (format == QSettings::IniFormat)
        return isReadableIni(file.readAll());
    QSettings::SettingsMap ignored;
    return readXmlSettings(file, ignored);
}

/*! Removes the empty lock file of a process that was killed while it took the lock; QSettings would wait for it for
    half a minute. The lock of a running process stays. */
void removeForgottenLock(const QString &fileName)
{
    const QFileInfo info(fileName + ".lock");
    if (!info.exists() || info.size() > 0)
        return;
    QLockFile lock(info.filePath());
    lock.setStaleLockTime(300);
    lock.tryLock(1000);
}

//! Returns whether the file is not empty and cannot be parsed.
bool isDamaged(const QString &fileName, QSettings::Format format)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && file.size() > 0 && !isReadable(file, format);
}

} // namespace

class RVXApplicationSettingsPrivate
{
public:
    void open();
    //! Removes a stale lock, and renames a damaged file and starts with an empty one.
    void mend();

    QString fileName;
    bool useApplicationIdentity = true;
    QSettings::Format format = QSettings::IniFormat;
    QSharedPointer<QSettings> settings;

private:
    void openFile(const QString &file);
    bool hasChanged();
    bool setAside(const QString &file) const;

    // State of the file at the last call of hasChanged().
    qint64 lastSize = -1;
    QDateTime lastTime;
};

void RVXApplicationSettingsPrivate::open()
{
    if (!useApplicationIdentity) {
        openFile(fileName);
        return;
    }
    settings.reset(new QSettings(format,
                                 QSettings::UserScope,
                                 QCoreApplication::organizationName(),
                                 QCoreApplication::applicationName()));
    settings->setFallbacksEnabled(false);
    if (!QCoreApplication::organizationName().isEmpty())
        return;
    // QSettings reads and writes this file, but its status stays at an error unless the file is named.
    openFile(settings->fileName());
    qCWarning(settingsLog) << "The application has no organisation name; its settings are kept in"
                           << settings->fileName();
}

void RVXApplicationSettingsPrivate::openFile(const QString &file)
{
    settings.reset(new QSettings(file, format));
    settings->setFallbacksEnabled(false);
}

bool RVXApplicationSettingsPrivate::hasChanged()
{
    const QFileInfo info(settings->fileName());
    const bool changed = info.size() != lastSize || info.lastModified() != lastTime;
    lastSize = info.size();
    lastTime = info.lastModified();
    return changed;
}

bool RVXApplicationSettingsPrivate::setAside(const QString &file) const
{
    // QSettings writes under the same lock, so no other process replaces the file between the check and the renaming.
    QLockFile lock(file + ".lock");
    const bool locked = lock.tryLock(1000);
    if (locked && !isDamaged(file, format))
        return true;
    const QString aside = file + ".damaged";
    QFile::remove(aside);
    if (!locked || !QFile::rename(file, aside)) {
        qCWarning(settingsLog) << "The settings file" << file
                               << "is damaged and cannot be renamed to" << aside;
        return false;
    }
    qCWarning(settingsLog) << "The settings file" << file << "was damaged and is kept as" << aside;
    return true;
}

void RVXApplicationSettingsPrivate::mend()
{
    const QString file = settings->fileName();
    removeForgottenLock(file);
    if (hasChanged() && isDamaged(file, format) && setAside(file))
        openFile(file);
}

RVXApplicationSettings::RVXApplicationSettings(QObject *parent,
                                               const QString &fileName,
                                               bool useApplicationIdentity,
                                               bool useXmlFormat)
    : QObject(parent)
    , d_ptr(new RVXApplicationSettingsPrivate)
{
    Q_D(RVXApplicationSettings);
    d->fileName = fileName;
    d->useApplicationIdentity = useApplicationIdentity;
    d->format = useXmlFormat ? xmlFormat() : QSettings::IniFormat;
    if (useApplicationIdentity)
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, fileName);
    d->open();
    d->mend();
}

RVXApplicationSettings::~RVXApplicationSettings() = default;

QSharedPointer<QSettings> RVXApplicationSettings::getSettings()
{
    Q_D(RVXApplicationSettings);
    d->mend();
    return d->settings;
}

bool RVXApplicationSettings::sync()
{
    Q_D(RVXApplicationSettings);
    const WriteTurn turn(QFileInfo(d->settings->fileName()).path());
    d->settings->sync();
    return d->settings->status() == QSettings::NoError;
}

} // namespace Corvale_Qt
