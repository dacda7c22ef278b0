// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"

#include <QString>

namespace Monitor {

/*! A file that is only ever appended to, under a lock that keeps other recorders away from it. What is appended goes to
    the system at once, and after a failure error() has the system's reason. */
class RecordingFile
{
public:
    //! What to do with an existing file.
    enum class Existing {
        Refuse, //!< report an error
        Replace, //!< empty the file
    };

    //! What other programs did to the file.
    enum class Displacement {
        None, //!< its path leads to it, and its size is that of the bytes that were appended
        Gone, //!< removed or renamed
        Replaced, //!< another file is in its place
        Changed, //!< it has another size
    };

    RecordingFile() = default;
    ~RecordingFile();
    RecordingFile(const RecordingFile &) = delete;
    RecordingFile &operator=(const RecordingFile &) = delete;

    //! The permissions of a new file, of which the user's mask may take some away: its group may read it.
    static constexpr unsigned usualMode = 0640;

    /*! Opens a file; a new one gets the permissions \a mode. Returns false, with error(), if it cannot be opened, if
        another recorder writes to it, or if it is a link that another user has put there. */
    bool open(const QString &path, Existing existing, unsigned mode = usualMode);
    //! Appends bytes and returns how many the system took; if they are fewer than \a size, error() says why.
    qint64 append(const char *data, qint64 size);
    //! Closes the file. Returns false, with error(), if the system could not keep what it had taken.
    bool close();

    //! Returns what other programs did to the file since it was opened.
    Displacement displacement() const;
    //! Returns "was removed or renamed" and the like, in the language in which texts are made at present; empty for none.
    static QString text(Displacement displacement);

    QString path() const { return m_path; }
    //! Returns the number of bytes that were appended.
    qint64 size() const { return m_size; }
    LoggedText error() const;

private:
    bool lock();
    bool isForeignLink() const;
    bool fail(int errorNumber);

    QString m_path;
    int m_descriptor = -1;
    qint64 m_size = 0;
    LoggedText m_error;
    //! The system's number of an error, or 0 if m_error says what is wrong. Its text is made in the owner's thread only.
    int m_errorNumber = 0;
};

} // namespace Monitor
