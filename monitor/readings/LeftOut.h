// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Corvale_Qt {
struct DetectorFrame;
} // namespace Corvale_Qt

namespace Monitor {

class ReadingBlock;
struct StreamHeader;

//! Readings of a frame that belong to no cell, and what they add up to.
struct LeftOut
{
    //! What the count is about.
    enum class What {
        Readings, //!< readings that the detector has no cell for
        Cells, //!< cells of the stream that the detector has no wire for
    };

    //! Returns what the detector of a frame leaves out of it; \a unit is that of the readings.
    static LeftOut of(const Corvale_Qt::DetectorFrame &frame, const QString &unit);

    What what = What::Readings;
    int count = 0;
    double sum = 0.0; //!< in the unit of the readings
    QString unit; //!< may be empty

    //! Returns one line, for example "24 cells are not wired: 100 nC left out"; empty if nothing is left out.
    QString text() const;
};

//! Counts the readings of streams that have charge where the detector has no cell.
class LeftOutCount
{
public:
    //! Takes the next readings of a stream. Without a detector that has places there is nothing to count.
    void take(const StreamHeader &header, const ReadingBlock &readings);

    qint64 count() const { return m_count; }
    //! Returns what the reading leaves out that leaves out most; nothing if there is none.
    const LeftOut &worst() const { return m_worst; }
    //! Returns the time of that reading in seconds, in the stream that it came in.
    double worstTime() const { return m_worstTime; }
    //! Returns one line with the count and the worst of the readings; empty if there is none.
    QString text() const;

private:
    qint64 m_count = 0;
    LeftOut m_worst;
    double m_worstTime = 0.0;
};

} // namespace Monitor
