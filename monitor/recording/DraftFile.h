// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QFile>
#include <QString>

namespace Monitor {

/*! A file that is written beside its place and gets its name only when it is whole: "a.h5.part" becomes "a.h5". One that is
    not committed is removed. */
class DraftFile
{
public:
    explicit DraftFile(const QString &target);
    //! Removes the draft, unless it was committed.
    ~DraftFile();
    DraftFile(const DraftFile &) = delete;
    DraftFile &operator=(const DraftFile &) = delete;

    /*! Makes the draft, in place of one that a killed program has left. \a mode are its permissions, of which the user's mask may
        take some away. Returns false, with errorString(), if that is not possible or if another program writes to it. */
    bool create(unsigned mode);
    //! Returns the open draft, which is empty at first.
    QFile &file() { return m_file; }
    //! Returns the path of the draft, for those that open it once more.
    QString path() const { return m_path; }
    /*! Writes the draft to the disk and gives it the name of its target; with \a replaces, also in place of an existing file. Returns
        false, with errorString(), and removes the draft, if that is not possible. */
    bool commit(bool replaces = false);
    //! Removes the draft.
    void discard();
    //! Returns the system's reason for the last failure.
    QString errorString() const { return m_error; }

private:
    bool fail(int errorNumber);

    const QString m_target;
    const QString m_path;
    QFile m_file;
    QString m_error;
};

//! Returns whether an open file is the one of that name.
bool isNamed(const QFile &file, const QString &path);

} // namespace Monitor
