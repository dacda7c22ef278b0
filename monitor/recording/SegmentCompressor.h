// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/WorkThread.h"
#include "monitor/recording/SegmentForm.h"

#include <QStringList>

#include <atomic>

namespace Monitor {

/*! Brings the files of a recording that are complete into another form, one after the other in a separate thread: a.csv becomes
    a.csv.zst or a.h5. The file itself is removed only after the other one has been written to the disk, read back, and found
    to hold the same, so that a kill at any moment leaves at least one of them whole. */
class SegmentCompressor
{
public:
    SegmentCompressor();
    //! Waits until all files are compressed.
    ~SegmentCompressor();
    SegmentCompressor(const SegmentCompressor &) = delete;
    SegmentCompressor &operator=(const SegmentCompressor &) = delete;

    //! Brings a file to which nothing is written any more into another form. It stays as it is, with an error, if the thread cannot start.
    void add(const QString &path, const SegmentConversion &conversion);
    //! Returns the files that are not compressed yet; the first one is in work.
    QStringList pending() const;
    //! Returns how much of the file in work is done, from 0 to 1.
    double progress() const { return m_progress; }
    //! Waits until all files are compressed.
    void finish();
    //! Leaves the files that are pending as they are, and returns as soon as the thread has ended.
    void cancel();
    //! Returns what went wrong since the last call, a line for each file that stays as it was.
    QStringList takeErrors();

private:
    //! A file, and what is to become of it.
    struct Job
    {
        QString path;
        SegmentConversion conversion;
        QString error; //!< empty if nothing went wrong
    };

    void work(Job &job);

    QStringList m_errors; //!< is looked at while the thread changes nothing
    std::atomic<bool> m_isCancelled = false;
    std::atomic<double> m_progress = 0.0;
    WorkThread<Job> m_thread;
};

/*! Brings a file into another form as SegmentCompressor does. \a goesOn is called with the progress, from 0 to 1, and cancels the
    work if it returns false. A file that does not suit stays as it is. Returns false, with a line in \a error, and leaves the file as it was, if that is not possible. */
bool convertSegment(const QString &path,
                    const SegmentConversion &conversion,
                    QString *error,
                    const SegmentConversion::GoesOn &goesOn = nullptr);

} // namespace Monitor
