// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace Monitor {

/*! The names of a recording's files: the file that was asked for and the same with numbers ("a.csv", "a-2.csv"); or, in
    a folder, names made of date and time. */
class RecordingNames
{
public:
    //! What is a folder now stays one, whatever becomes of it.
    explicit RecordingNames(const QString &path);

    QString first(const QDateTime &now) const;
    //! A name that no file has, for the file after \a filesBegun others.
    QString next(const QDateTime &now, int filesBegun) const;

private:
    QString dated(const QDateTime &now) const;

    const QString m_path;
    const bool m_isFolder;
};

} // namespace Monitor
