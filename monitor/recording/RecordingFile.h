// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

/*! A file that is only ever appended to, under a lock that keeps every other recorder from it. What is appended goes
    to the system at once, and every failure keeps the system's own reason. */
class RecordingFile
{
public:
    enum class Existing {
        Refuse, //!< a file of that name is an error
        Replace, //!< it is emptied
    };

    RecordingFile() = default;
    ~RecordingFile();
    RecordingFile(const RecordingFile &) = delete;
    RecordingFile &operator=(const RecordingFile &) = delete;

    //! False, with errorString(), where the file cannot be had or is another recorder's.
    bool open(const QString &path, Existing existing);
    //! Appends and returns how many bytes the system took; fewer than \a size with errorString().
    qint64 append(const char *data, qint64 size);
    //! False, with errorString(), where the system could not keep what it had taken.
    bool close();

    /*! What has become of the file behind this program's back, as in "was removed or renamed"; empty while its path
        leads to it and nobody else has changed its size. */
    QString displacement() const;

    QString path() const { return m_path; }
    //! Bytes that were appended.
    qint64 size() const { return m_size; }
    QString errorString() const { return m_error; }

private:
    bool lock();
    bool fail(int errorNumber);

    QString m_path;
    int m_descriptor = -1;
    qint64 m_size = 0;
    QString m_error;
};

} // namespace Monitor
