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
    for (int row = 0; row < readings.size(); ++row)
        noteReading(readings.time(row), readings.values(row));
    const double *last = readings.values(readings.size() - 1);
    m_lastValues.assign(last, last + readings.channels());
}

const double *StreamStatistics::lastNumbers() const
{
    if (m_readings == 0)
        return nullptr;
    return m_header.hasFrames() ? m_frameNumbers.numbers().data() : m_lastValues.data();
}

void StreamStatistics::noteReading(double time, const double *values)
{
    if (m_readings++ == 0)
        m_firstTime = time;
    else if (m_gapWatch.isGap(time - m_lastTime))
        noteGap();
    m_lastTime = time;
    const double *ofChannels = values;
    if (m_header.hasFrames()) {
        m_frameNumbers.take(values);
        ofChannels = m_frameNumbers.numbers().data();
        m_numbers.append(time, ofChannels);
    }
    for (std::size_t i = 0; i < m_channels.size(); ++i)
        m_channels[i].add(time, ofChannels[i]);
    m_limitLog.add(time, ofChannels);
    if (m_shape.isEmpty())
        return;
    m_frames.push_back({time,
                        m_header.hasFrames()
                            ? m_frameNumbers.moments()
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
