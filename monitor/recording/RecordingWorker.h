// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/WorkThread.h"
#include "monitor/recording/RecordingBatch.h"
#include "monitor/recording/RecordingText.h"

#include <atomic>
#include <vector>

namespace Monitor {

class RecordingFile;

/*! Turns what is recorded into text and writes it in large pieces, in a separate thread if much comes at once. What little
    has come is left until settle(), which needs no thread. Where the system has no more threads, the caller does all of the work.

    The thread only does what usually succeeds. If the file is not in its place any more, or the disk does not take everything, it
    writes no more and isStuck(), as with a file that has become long enough; the owner then decides what becomes of the text that
    waits. */
class RecordingWorker
{
public:
    //! How many bytes may wait to become text, beside the readings that are added last; add() waits while there are more.
    static constexpr qint64 mostQueued = qint64(2) * 1024 * 1024;

    RecordingWorker();
    //! Ends the thread. What waits is not written.
    ~RecordingWorker() = default;
    RecordingWorker(const RecordingWorker &) = delete;
    RecordingWorker &operator=(const RecordingWorker &) = delete;

    //! Adds a copy of readings, which have as many values as \a shape says.
    void add(const ReadingBlock &readings, const ReadingShape &shape);
    //! Adds lines, or the header of the readings that follow.
    void add(RecordingBatch::Entry::Kind kind, const QByteArray &lines);
    //! Returns whether the thread could not write since setFile(), or the file has become too long.
    bool isStuck() const { return m_isStuck; }
    //! Returns the bytes of the file and of the text that waits for it.
    qint64 size() const { return m_size; }
    //! Returns how many readings were lost because the text that waits had become too long.
    qint64 lostReadings() const { return m_text.lostReadings(); }

    //! Waits until everything that was added is text. Until more is added, text and file belong to the caller.
    void settle();
    //! Returns the text. Call settle() before.
    RecordingText &text() { return m_text; }
    /*! Sets the file, and whether large pieces of text are written to it at once, as long as it stays shorter than \a mostBytes (0 for any
        length). Call settle() before. */
    void setFile(RecordingFile *file, bool writes, qint64 mostBytes);

private:
    void seal();
    RecordingBatch takeSpare();
    void workOnFilling();
    void work(const RecordingBatch &batch);
    bool isFull() const;
    bool writeWaiting();
    void tellSize();

    RecordingBatch m_filling; //!< belongs to the owner until it is large enough for the thread
    std::vector<RecordingBatch> m_spare; //!< empty ones, whose memory is used again

    // These belong to the thread while it has batches, and otherwise to the owner.
    RecordingText m_text;
    RecordingFile *m_file = nullptr;
    bool m_writes = false;
    qint64 m_mostBytes = 0;

    std::atomic<bool> m_isStuck = false;
    std::atomic<qint64> m_size = 0;
    WorkThread<RecordingBatch> m_thread;
};

} // namespace Monitor
