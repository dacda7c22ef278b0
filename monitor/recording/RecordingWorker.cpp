// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingWorker.h"

#include "monitor/core/ThreadStart.h"
#include "monitor/recording/RecordingFile.h"
#include "monitor/recording/RecordingRows.h"

#include <utility>

namespace Monitor {

namespace {

//! As much as the thread takes at a time. An instrument that sends less in the time between two writes needs no thread.
constexpr qint64 batchSize = qint64(128) * 1024;

} // namespace

RecordingWorker::~RecordingWorker()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
        m_wakeUp.notify_one();
    }
    if (m_thread.joinable())
        m_thread.join();
}

void RecordingWorker::add(const ReadingBlock &readings, const ReadingShape &shape)
{
    if (!m_filling.takes(shape))
        settle();
    m_filling.append(readings, shape);
    if (m_filling.size() >= batchSize)
        seal();
}

void RecordingWorker::add(RecordingBatch::Entry::Kind kind, const QByteArray &lines)
{
    m_filling.append(kind, lines);
    if (m_filling.size() >= batchSize)
        seal();
}

//! Hands what was added to the thread, and waits while it is far behind.
void RecordingWorker::seal()
{
    if (!hasThread()) {
        workOnFilling();
        return;
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    m_taken.wait(lock, [this] {
        return m_sealedBytes < mostQueued;
    });
    m_sealedBytes += m_filling.size();
    m_sealed.push_back(std::move(m_filling));
    m_filling = RecordingBatch();
    if (!m_spare.empty()) {
        m_filling = std::move(m_spare.back());
        m_spare.pop_back();
    }
    m_wakeUp.notify_one();
}

//! Starts the thread if that was not possible until now.
bool RecordingWorker::hasThread()
{
    return m_thread.joinable() || startThread(&m_thread, [this] {
               run();
           });
}

void RecordingWorker::settle()
{
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_taken.wait(lock, [this] {
            return m_sealed.empty();
        });
    }
    if (!m_filling.isEmpty())
        workOnFilling();
}

void RecordingWorker::workOnFilling()
{
    work(m_filling);
    m_filling.clear();
}

void RecordingWorker::setFile(RecordingFile *file, bool writes, qint64 mostBytes)
{
    m_file = file;
    m_writes = writes;
    m_mostBytes = mostBytes;
    m_isStuck = false;
    tellSize();
}

void RecordingWorker::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wakeUp.wait(lock, [this] {
            return !m_sealed.empty() || m_isEnding;
        });
        if (m_isEnding)
            return;
        RecordingBatch &batch = m_sealed.front(); // stays where it is while others are added
        lock.unlock();
        work(batch);
        lock.lock();
        m_sealedBytes -= batch.size();
        batch.clear();
        m_spare.push_back(std::move(batch));
        m_sealed.pop_front();
        m_taken.notify_one();
    }
}

void RecordingWorker::work(const RecordingBatch &batch)
{
    m_text.append(batch);
    const bool isDue = m_text.waiting().size() >= recordingPiece || isFull();
    if (m_writes && isDue && (isFull() || !writeWaiting())) {
        m_writes = false;
        m_isStuck = true;
    }
    tellSize();
}

//! Returns whether the file would become too long with the text that waits.
bool RecordingWorker::isFull() const
{
    return m_mostBytes > 0 && m_file && m_file->size() + m_text.waiting().size() >= m_mostBytes;
}

//! Returns false if text is left.
bool RecordingWorker::writeWaiting()
{
    WaitingText &waiting = m_text.waiting();
    if (m_file->displacement() != RecordingFile::Displacement::None)
        return false;
    waiting.take(m_file->append(waiting.data(), waiting.size()));
    return waiting.isEmpty();
}

void RecordingWorker::tellSize()
{
    m_size = (m_file ? m_file->size() : 0) + m_text.waiting().size();
}

} // namespace Monitor
