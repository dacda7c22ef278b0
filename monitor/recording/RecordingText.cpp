// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingText.h"

#include "monitor/core/Text.h"
#include "monitor/recording/RecordingRows.h"

#include <utility>

namespace Monitor {

void RecordingText::append(const RecordingBatch &batch)
{
    int row = 0;
    for (const RecordingBatch::Entry &entry : batch.entries) {
        switch (entry.kind) {
        case RecordingBatch::Entry::Kind::Header:
            m_dueHeader = entry.lines;
            break;
        case RecordingBatch::Entry::Kind::Lines:
            append(entry.lines, 0);
            break;
        case RecordingBatch::Entry::Kind::Readings:
            appendReadings(batch, row, entry.endRow);
            row = entry.endRow;
            break;
        }
    }
}

void RecordingText::appendReadings(const RecordingBatch &batch, int begin, int end)
{
    m_rows.resize(0);
    for (int row = begin; row < end; ++row)
        appendRecordingReading(&m_rows,
                               batch.shape,
                               batch.readings.time(row),
                               batch.readings.values(row));
    append(m_rows, end - begin);
}

/*! Appends readings with their header, if it is due. Readings without their header would seem to belong to another
    stream, so that both are kept or both are lost. */
void RecordingText::append(const QByteArray &text, int readings)
{
    if (!m_waiting.hasRoomFor(m_dueHeader.size() + text.size())) {
        m_lost += readings;
        m_allLost += readings;
        return;
    }
    appendLoss();
    if (!m_dueHeader.isEmpty())
        m_waiting.appendHeader(std::exchange(m_dueHeader, {}));
    m_waiting.append(text);
}

void RecordingText::appendLoss()
{
    if (m_lost == 0)
        return;
    QByteArray line;
    appendRecordingEvent(
        &line,
        Text::countedInEnglish("%n reading(s) was/were lost here because the disk was full",
                               nullptr,
                               m_lost));
    m_waiting.append(line);
    m_lost = 0;
}

} // namespace Monitor
