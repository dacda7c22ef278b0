// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <filesystem>

inline QByteArray fileContents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

//! Whether /dev/full is the device on which every write fails; in some containers it is missing, or a plain file.
inline bool hasFullDevice()
{
    return std::filesystem::is_character_file("/dev/full");
}

//! Makes the folder, too, where there is none.
inline void putFile(const QString &fileName, const QByteArray &contents)
{
    QDir().mkpath(QFileInfo(fileName).path());
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write %s", qPrintable(fileName));
}
