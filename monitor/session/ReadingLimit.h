// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/ReadingBlock.h"

namespace Monitor {

/*! How much of a stream a run takes: so many readings, or so many seconds of the readings' own time, or all. It cuts
    to the reading, whatever the blocks are that they come in. */
class ReadingLimit
{
public:
    //! No limit.
    ReadingLimit() = default;
    //! 0 for no limit of that kind.
    ReadingLimit(qint64 readings, double seconds)
        : m_readings(readings)
        , m_seconds(seconds)
    {
    }

    bool exists() const { return m_readings > 0 || m_seconds > 0.0; }
    bool isReached() const { return m_reached; }
    //! The first of these readings that still belong to the run; all of \a readings where the limit is far.
    const ReadingBlock &take(const ReadingBlock &readings);

private:
    bool endsWith(double time, qint64 number) const;

    qint64 m_readings = 0;
    double m_seconds = 0.0;
    qint64 m_taken = 0;
    double m_firstTime = 0.0;
    bool m_reached = false;
    ReadingBlock m_part;
};

} // namespace Monitor
