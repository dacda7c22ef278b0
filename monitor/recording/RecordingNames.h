// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace Monitor {

/*! The names of a recording's files: the requested file, then the same name with numbers ("a.csv", "a-2.csv"); or, in a
    folder, names made of date and time. If several sources are recorded together, the names have a label ("a-beam1.csv"). */
class RecordingNames
{
public:
    //! A path that is a folder now counts as a folder even after it was removed.
    explicit RecordingNames(const QString &path, const QString &label = {});

    //! Returns the path of the first file, or the folder of all files.
    QString path() const { return m_path; }
    //! Returns the path of the first file.
    QString first(const QDateTime &now) const;
    //! Returns a path that no file has, for the file after \a filesBegun others.
    QString next(const QDateTime &now, int filesBegun) const;

private:
    QString dated(const QDateTime &now) const;

    const QString m_label; //!< empty for none
    const bool m_isFolder;
    const QString m_path;
};

} // namespace Monitor
