// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace Monitor {

/*! Compresses the files of a recording that are complete, one after the other in a separate thread: a.csv becomes
    a.csv.zst. The file itself is removed only after the compressed one has been written to the disk, read back, and found
    to hold the same bytes, so that a kill at any moment leaves at least one of them whole. */
class SegmentCompressor
{
public:
    SegmentCompressor() = default;
    //! Waits until all files are compressed.
    ~SegmentCompressor();
    SegmentCompressor(const SegmentCompressor &) = delete;
    SegmentCompressor &operator=(const SegmentCompressor &) = delete;

    //! Compresses a file to which nothing is written any more.
    void add(const QString &path);
    //! Waits until all files are compressed.
    void finish();
    //! Returns what went wrong since the last call, a line for each file that stays as it was.
    QStringList takeErrors();

private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_wakeUp;
    std::deque<QString> m_paths;
    QStringList m_errors;
    bool m_isEnding = false;
    std::thread m_thread;
};

//! Returns the path of the compressed file: with ".zst" behind it.
QString compressedPath(const QString &path);
/*! Compresses a file as SegmentCompressor does. Returns false, with a line in \a error, and leaves the file as it was, if
    that is not possible. */
bool compressFile(const QString &path, QString *error);

} // namespace Monitor
