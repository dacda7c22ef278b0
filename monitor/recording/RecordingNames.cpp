// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingNames.h"

#include <QDir>
#include <QFileInfo>

namespace Monitor {

namespace {

QString withNumber(const QString &path, int number)
{
    const QFileInfo info(path);
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    return info.dir().filePath(
        QStringLiteral("%1-%2%3").arg(info.completeBaseName(), QString::number(number), suffix));
}

QString firstFree(const QString &path, int number)
{
    QString candidate = number > 1 ? withNumber(path, number) : path;
    while (QFileInfo::exists(candidate) || QFileInfo::exists(candidate + QLatin1String(".zst")))
        candidate = withNumber(path, ++number);
    return candidate;
}

} // namespace

RecordingNames::RecordingNames(const QString &path)
    : m_path(QFileInfo(path).absoluteFilePath())
    , m_isFolder(QFileInfo(path).isDir())
{
}

QString RecordingNames::dated(const QDateTime &now) const
{
    return QDir(m_path).filePath(now.toString(QStringLiteral("'corvale-'yyyyMMdd-HHmmss'.csv'")));
}

QString RecordingNames::first(const QDateTime &now) const
{
    return m_isFolder ? firstFree(dated(now), 1) : m_path;
}

QString RecordingNames::next(const QDateTime &now, int filesBegun) const
{
    return m_isFolder ? firstFree(dated(now), 1) : firstFree(m_path, filesBegun + 1);
}

} // namespace Monitor
