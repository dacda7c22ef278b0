// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/TapeCache.h"

#include "monitor/core/RegularFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <sys/stat.h>

namespace Monitor {

namespace {

constexpr qint64 sampleSize = qint64(64) * 1024;
constexpr qint64 largestFile = qint64(256) * 1024 * 1024;
constexpr int hashSize = 20;

QByteArray hashOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

} // namespace

TapeCache::TapeCache(const QString &path, const ImportOptions &options, const QString &folder)
    : m_path(QFileInfo(path).canonicalFilePath())
    , m_options(options.text())
    , m_folder(folder)
{
    if (m_folder.isEmpty())
        m_folder = QDir(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation))
                       .filePath(QStringLiteral("Corvale/tapes"));
    const QByteArray name = hashOf(m_path.toUtf8() + '\0' + m_options.toUtf8()).toHex();
    m_file = QDir(m_folder).filePath(QString::fromLatin1(name) + QLatin1String(".tape"));
    m_fingerprint = fingerprint();
}

//! Returns what tells this recording from what it may become; empty if it cannot be read.
QByteArray TapeCache::fingerprint() const
{
    QFile file(m_path);
    if (!openRegular(file))
        return {};
    struct stat status = {};
    if (::fstat(file.handle(), &status) != 0)
        return {};
    // Programs that copy may set the date of change; they cannot set that of the file's own record.
    QByteArray text = m_options.toUtf8() + '\0';
    for (const qint64 number : {qint64(status.st_size),
                                qint64(status.st_ino),
                                qint64(status.st_mtim.tv_sec),
                                qint64(status.st_mtim.tv_nsec),
                                qint64(status.st_ctim.tv_sec),
                                qint64(status.st_ctim.tv_nsec)})
        text += QByteArray::number(number) + '\0';
    text += file.read(sampleSize);
    file.seek(std::max<qint64>(0, file.size() - sampleSize));
    text += file.read(sampleSize);
    return hashOf(text);
}

TapeIndex TapeCache::load() const
{
    QFile file(m_file);
    TapeIndex index;
    if (m_fingerprint.isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > largestFile)
        return index;
    if (file.read(hashSize) == m_fingerprint)
        index.fromBytes(file.readAll());
    return index;
}

void TapeCache::save(const TapeIndex &index) const
{
    if (m_fingerprint.isEmpty() || m_fingerprint != fingerprint() || !QDir().mkpath(m_folder))
        return;
    // An index tells what a recording holds, so nobody else may read it.
    constexpr auto own = QFile::ReadOwner | QFile::WriteOwner;
    QFile::setPermissions(m_folder, own | QFile::ExeOwner);
    if (QFileInfo(m_file).isSymLink() && !QFile::remove(m_file))
        return; // what it points to is not ours
    QSaveFile file(m_file);
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(own))
        return;
    file.write(m_fingerprint + index.toBytes());
    if (!file.commit())
        return;
    const QFileInfoList kept =
        QDir(m_folder).entryInfoList({QStringLiteral("*.tape")}, QDir::Files, QDir::Time);
    for (int i = mostFiles; i < kept.size(); ++i)
        QFile::remove(kept[i].filePath());
}

} // namespace Monitor
