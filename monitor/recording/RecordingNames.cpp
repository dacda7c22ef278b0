// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingNames.h"

#include "monitor/recording/SegmentForm.h"

#include <QDir>
#include <QFileInfo>

namespace Monitor {

namespace {

//! Returns the path with something added to the name, before the suffix.
QString withEnding(const QString &path, const QString &ending)
{
    const QFileInfo info(path);
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    return info.dir().filePath(
        QStringLiteral("%1-%2%3").arg(info.completeBaseName(), ending, suffix));
}

QString withNumber(const QString &path, int number)
{
    return withEnding(path, QString::number(number));
}

QString firstFree(const QString &path, int number)
{
    QString candidate = number > 1 ? withNumber(path, number) : path;
    while (existsInAnyForm(candidate))
        candidate = withNumber(path, ++number);
    return candidate;
}

} // namespace

RecordingNames::RecordingNames(const QString &path, const QString &label)
    : m_label(label)
    , m_isFolder(QFileInfo(path).isDir())
    , m_path(m_isFolder || label.isEmpty() ? QFileInfo(path).absoluteFilePath()
                                           : withEnding(QFileInfo(path).absoluteFilePath(), label))
{
}

QString RecordingNames::dated(const QDateTime &now) const
{
    const QString path =
        QDir(m_path).filePath(now.toString(QStringLiteral("'corvale-'yyyyMMdd-HHmmss'.csv'")));
    return m_label.isEmpty() ? path : withEnding(path, m_label);
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
