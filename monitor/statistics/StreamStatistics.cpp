// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/StreamStatistics.h"

namespace Monitor {

void StreamStatistics::startStream(const StreamHeader &header)
{
    const qint64 acquisition = m_acquisition + 1;
    *this = StreamStatistics();
    m_acquisition = acquisition;
    m_header = header;
    m_shape = PixelShape::of(header);
    m_frameNumbers = FrameNumbers(header);
    m_channels.resize(std::size_t(header.channels.size()));
    m_limitLog.startStream(header);
}

void StreamStatistics::setLimits(const QVector<Corvale_Qt::ChannelLimits> &limits)
{
    m_header.limits = limits;
    m_limitLog.setLimits(limits, m_lastTime);
}

void StreamStatistics::addReadings(const ReadingBlock &readings)
{
    m_numbers.clear(m_header.channels.size());
    if (readings.channels() != m_header.valuesPerReading() || readings.isEmpty())
        return;
    const bool areFrames = m_header.hasFrames();
    for (int row = 0; row < readings.size() && (areFrames || !m_shape.isEmpty()); ++row)
        noteFrame(readings.time(row), readings.values(row));
    addRows(areFrames ? m_numbers : readings);
    const double *last = readings.values(readings.size() - 1);
    m_lastValues.assign(last, last + readings.channels());
}

const double *StreamStatistics::lastNumbers() const
{
    if (m_readings == 0)
        return nullptr;
    return m_header.hasFrames() ? m_frameNumbers.numbers().data() : m_lastValues.data();
}

//! Adds rows that have a number for each channel.
void StreamStatistics::addRows(const ReadingBlock &rows)
{
    constexpr int rowsAtOnce = 16; // those of hundreds of channels stay in the processor's cache
    int first = 0;
    for (int row = 0; row < rows.size(); ++row) {
        const bool isGap = isAfterGap(rows.time(row));
        if (isGap || row - first == rowsAtOnce) {
            RunningStatistics::addRows(m_channels.data(), rows, first, row);
            first = row;
        }
        if (isGap)
            noteGap();
        m_limitLog.add(rows.time(row), rows.values(row));
    }
    RunningStatistics::addRows(m_channels.data(), rows, first, rows.size());
}

//! Counts a reading. Returns whether others are missing before it.
bool StreamStatistics::isAfterGap(double time)
{
    const bool isFirst = m_readings++ == 0;
    if (isFirst)
        m_firstTime = time;
    const bool isGap = !isFirst && m_gapWatch.isGap(time - m_lastTime);
    if (isGap && time - m_lastTime > m_longestGap.length())
        m_longestGap = {m_lastTime, time};
    m_lastTime = time;
    return isGap;
}

//! Computes the numbers and the moments of a frame.
void StreamStatistics::noteFrame(double time, const double *values)
{
    const bool isOfCells = m_header.hasFrames();
    if (isOfCells) {
        m_frameNumbers.take(values);
        m_numbers.append(time, m_frameNumbers.numbers().data());
    }
    if (m_shape.isEmpty())
        return;
    m_frames.push_back({time,
                        isOfCells ? m_frameNumbers.moments()
                                  : FrameMoments::of(values, m_shape.rows, m_shape.columns)});
    if (m_frames.size() > maxFrames)
        m_frames.pop_front();
}

void StreamStatistics::noteGap()
{
    ++m_gaps;
    for (RunningStatistics &channel : m_channels)
        channel.interrupt();
}

} // namespace Monitor
