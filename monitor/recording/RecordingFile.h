// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

/*! A file that is only ever appended to, under a lock that keeps other recorders away from it. What is appended goes to
    the system at once, and after a failure errorString() has the system's reason. */
class RecordingFile
{
public:
    //! What to do with an existing file.
    enum class Existing {
        Refuse, //!< report an error
        Replace, //!< empty the file
    };

    RecordingFile() = default;
    ~RecordingFile();
    RecordingFile(const RecordingFile &) = delete;
    RecordingFile &operator=(const RecordingFile &) = delete;

    //! The permissions of a new file, of which the user's mask may take some away: its group may read it.
    static constexpr unsigned usualMode = 0640;

    /*! Opens a file; a new one gets the permissions \a mode. Returns false, with errorString(), if it cannot be opened, if
        another recorder writes to it, or if it is a link that another user has put there. */
    bool open(const QString &path, Existing existing, unsigned mode = usualMode);
    //! Appends bytes and returns how many the system took; if they are fewer than \a size, errorString() says why.
    qint64 append(const char *data, qint64 size);
    //! Closes the file. Returns false, with errorString(), if the system could not keep what it had taken.
    bool close();

    /*! Returns what other programs did to the file, for example "was removed or renamed"; empty while its path leads
        to it and its size is that of the bytes that were appended. */
    QString displacement() const;

    QString path() const { return m_path; }
    //! Returns the number of bytes that were appended.
    qint64 size() const { return m_size; }
    QString errorString() const { return m_error; }

private:
    bool lock();
    bool isForeignLink() const;
    bool fail(int errorNumber);

    QString m_path;
    int m_descriptor = -1;
    qint64 m_size = 0;
    QString m_error;
};

} // namespace Monitor
