// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingWorker.h"

#include "monitor/recording/RecordingFile.h"
#include "monitor/recording/RecordingRows.h"

#include <deque>
#include <utility>

namespace Monitor {

namespace {

//! As much as the thread takes at a time. An instrument that sends less in the time between two writes needs no thread.
constexpr qint64 batchSize = qint64(128) * 1024;

qint64 bytesOf(const std::deque<RecordingBatch> &batches)
{
    qint64 bytes = 0;
    for (const RecordingBatch &batch : batches)
        bytes += batch.size();
    return bytes;
}

} // namespace

RecordingWorker::RecordingWorker()
    : m_thread(
        [this](const RecordingBatch &batch) {
            work(batch);
        },
        [this](RecordingBatch &batch) {
            batch.clear();
            m_spare.push_back(std::move(batch));
        })
{
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
    if (!m_thread.start()) {
        workOnFilling();
        return;
    }
    m_thread.wait([](const auto &sealed) {
        return bytesOf(sealed) < mostQueued;
    });
    m_thread.add(std::exchange(m_filling, m_thread.locked([this](const auto &) {
        return takeSpare();
    })));
}

//! Returns an empty batch.
RecordingBatch RecordingWorker::takeSpare()
{
    if (m_spare.empty())
        return RecordingBatch();
    RecordingBatch batch = std::move(m_spare.back());
    m_spare.pop_back();
    return batch;
}

void RecordingWorker::settle()
{
    m_thread.wait([](const auto &sealed) {
        return sealed.empty();
    });
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
