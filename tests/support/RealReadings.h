// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QFile>
#include <QString>
#include <QStringList>
#include <QVector>

//! The lines of a table among the real readings, the header line first; none where the folder is missing.
inline QVector<QStringList> realReadings(const QString &name)
{
    QFile file(QStringLiteral(CORVALE_QT_DATA_DIR "/") + name);
    QVector<QStringList> lines;
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        while (!file.atEnd())
            lines << QString::fromLatin1(file.readLine()).trimmed().split(',');
    }
    return lines;
}
