// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/ReadingBlock.h"
#include "monitor/recording/RecordingRows.h"

#include <QByteArray>

#include <vector>

namespace Monitor {

//! What is recorded next, in its order: readings of one shape, and the lines between them. The readings are not text yet.
struct RecordingBatch
{
    struct Entry
    {
        enum class Kind {
            Readings, //!< the readings from the former entry's last one up to \a endRow
            Lines, //!< lines as they are to be written; none only write what is due
            Header, //!< the lines with which a stream begins
        };
        Kind kind;
        int endRow; //!< the number of readings up to this entry
        QByteArray lines;
    };

    //! Returns whether readings of that shape suit those that are there.
    bool takes(const ReadingShape &added) const { return readings.isEmpty() || shape == added; }
    //! Appends readings that have as many values as \a added says.
    void append(const ReadingBlock &block, const ReadingShape &added)
    {
        if (readings.isEmpty())
            readings.clear(block.channels());
        shape = added;
        readings.append(block);
        entries.push_back({Entry::Kind::Readings, readings.size(), {}});
    }
    void append(Entry::Kind kind, const QByteArray &lines)
    {
        entries.push_back({kind, readings.size(), lines});
        lineBytes += lines.size();
    }
    //! Removes everything; keeps the memory.
    void clear()
    {
        entries.clear();
        readings.clear(0);
        lineBytes = 0;
    }

    bool isEmpty() const { return entries.empty(); }
    //! Returns the bytes that the batch holds.
    qint64 size() const
    {
        return lineBytes + qint64(entries.size() * sizeof(Entry))
            + qint64(sizeof(double)) * readings.size() * (1 + readings.channels());
    }

    ReadingShape shape{};
    ReadingBlock readings;
    std::vector<Entry> entries;
    qint64 lineBytes = 0;
};

} // namespace Monitor
