// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/tape/TapeIndexer.h"

#include <thread>

namespace Monitor {

/*! Gets the index of a recording in a separate thread, from the cache or by reading all of the recording. Its owner asks
    from time to time whether it is done; nothing is called from the thread. */
class TapeIndexThread
{
public:
    //! Starts the thread; if that is not possible, there is no index. \a cacheFolder is that of TapeCache.
    TapeIndexThread(const QString &path,
                    const ImportOptions &options,
                    const QString &cacheFolder = {});
    //! Cancels what is not done, and waits for the thread: for the reading of one piece at most.
    ~TapeIndexThread();
    TapeIndexThread(const TapeIndexThread &) = delete;
    TapeIndexThread &operator=(const TapeIndexThread &) = delete;

    //! Returns how much of the recording was read, from 0 to 1.
    double progress() const { return m_indexing.progress; }
    //! Returns whether the thread has ended, or could not start.
    bool isDone() const { return m_done; }
    //! Waits for the thread and returns the index; an empty one, with errorString(), if there is none.
    const TapeIndex &result();
    //! Returns why there is no index, once isDone().
    QString errorString() const { return m_error; }

private:
    void run(const QString &path, const ImportOptions &options, const QString &cacheFolder);
    void tellEnd();

    TapeIndexing m_indexing;
    std::atomic<bool> m_done{false};
    TapeIndex m_index;
    QString m_error;
    std::thread m_thread;
};

} // namespace Monitor
