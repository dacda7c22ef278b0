// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/session/RunTimeline.h"

#include "monitor/core/NumberText.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Monitor {

namespace {

//! Seconds that two parts are apart at least.
constexpr double shortestPause = 1e-3;

//! Returns a time for a person, to the millisecond.
QString timeText(double seconds)
{
    constexpr double milli = 1e3;
    constexpr int digits = 12;
    return numberText(std::round(seconds * milli) / milli, digits);
}

} // namespace

void RunTimeline::begin(const StreamHeader &header)
{
    *this = RunTimeline();
    m_header = header;
}

bool RunTimeline::goesOnWith(const StreamHeader &header) const
{
    return m_any && header.kind == m_header.kind && header.channels == m_header.channels
        && header.rangeLow == m_header.rangeLow && header.rangeHigh == m_header.rangeHigh
        && header.detector == m_header.detector && header.frameSize == m_header.frameSize;
}

void RunTimeline::beginPart(const StreamHeader &header)
{
    m_partStart = header.startTime;
    m_isPartDue = true;
}

//! Returns what is added to the times of a part whose first reading arrives at \a now.
double RunTimeline::offsetFor(double firstTime, double now) const
{
    constexpr double milli = 1e-3;
    if (m_header.startTime.isValid() && m_partStart.isValid()) {
        const double stated = double(m_header.startTime.msecsTo(m_partStart)) * milli;
        if (stated + firstTime > m_lastTime)
            return stated;
    }
    return m_lastTime + std::max(now - m_lastArrival, shortestPause) - firstTime;
}

std::optional<QString> RunTimeline::takeBegunPart(const ReadingBlock &readings, double now)
{
    if (!m_isPartDue || readings.isEmpty())
        return std::nullopt;
    m_isPartDue = false;
    const double before = m_lastTime;
    m_offset = offsetFor(readings.time(0), now);
    const double begin = readings.time(0) + m_offset;
    if (m_header.kind == StreamKind::Channels)
        m_separatedAt = 0.5 * (before + begin);
    return QCoreApplication::translate("Monitor::RunTimeline",
                                       "WARNING the instrument's clock started over: part %1 "
                                       "begins. Its time %2 s is shown "
                                       "as %3 s, and what came before is kept")
        .arg(QString::number(++m_parts), timeText(readings.time(0)), timeText(begin));
}

const ReadingBlock &RunTimeline::place(const ReadingBlock &readings, double now)
{
    if (readings.isEmpty())
        return readings;
    m_any = true;
    m_lastArrival = now;
    m_lastTime = readings.time(readings.size() - 1) + m_offset;
    if (m_offset == 0.0 && !m_separatedAt)
        return readings;
    m_placed.clear(readings.channels());
    if (m_separatedAt) {
        const std::vector<double> none(std::size_t(readings.channels()),
                                       std::numeric_limits<double>::quiet_NaN());
        m_placed.append(*std::exchange(m_separatedAt, std::nullopt), none.data());
    }
    for (int row = 0; row < readings.size(); ++row)
        m_placed.append(readings.time(row) + m_offset, readings.values(row));
    return m_placed;
}

} // namespace Monitor
