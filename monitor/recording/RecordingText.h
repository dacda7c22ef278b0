// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/RecordingBatch.h"
#include "monitor/recording/WaitingText.h"

#include <QByteArray>

#include <atomic>

namespace Monitor {

/*! Turns what is recorded into text, which waits here until it is written. If the text has grown to WaitingText::maxSize, further readings
    are lost, and the text says how many. */
class RecordingText
{
public:
    //! Appends everything that a batch holds.
    void append(const RecordingBatch &batch);
    //! Appends a line that says how many readings were lost, if there were any since the last such line.
    void appendLoss();

    //! Returns the text that waits.
    WaitingText &waiting() { return m_waiting; }
    const WaitingText &waiting() const { return m_waiting; }
    //! Returns how many readings were lost. This may be asked in any thread.
    qint64 lostReadings() const { return m_allLost; }

private:
    void appendReadings(const RecordingBatch &batch, int begin, int end);
    void append(const QByteArray &text, int readings);

    //! The header of the stream, until something is appended under it.
    QByteArray m_dueHeader;
    QByteArray m_rows;
    WaitingText m_waiting;
    qint64 m_lost = 0; //!< readings that no line has told
    std::atomic<qint64> m_allLost = 0;
};

} // namespace Monitor
