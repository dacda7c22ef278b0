// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/ReadingLimit.h"

namespace Monitor {

const ReadingBlock &ReadingLimit::take(const ReadingBlock &readings)
{
    if (!exists())
        return readings;
    m_part.clear(readings.channels());
    for (int row = 0; row < readings.size() && !m_reached; ++row) {
        if (m_taken == 0)
            m_firstTime = readings.time(row);
        ++m_taken;
        m_part.append(readings.time(row), readings.values(row));
        m_reached = endsWith(readings.time(row), m_taken);
    }
    return m_part;
}

bool ReadingLimit::endsWith(double time, qint64 number) const
{
    const bool enoughReadings = m_readings > 0 && number >= m_readings;
    const bool enoughTime = m_seconds > 0.0 && time - m_firstTime >= m_seconds * m_pace;
    return enoughReadings || enoughTime;
}

} // namespace Monitor
