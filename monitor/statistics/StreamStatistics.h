// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/PixelShape.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include "monitor/statistics/FrameMoments.h"
#include "monitor/statistics/RunningStatistics.h"

#include <deque>

namespace Monitor {

//! Statistics of a whole stream, in memory that does not grow with it.
class StreamStatistics
{
public:
    struct Frame
    {
        double time;
        FrameMoments moments;
    };
    //! Of the pixel frames' moments, the latest so many are kept.
    static constexpr std::size_t maxFrames = 10000;

    //! A new acquisition: forgets the one before.
    void startStream(const StreamHeader &header);
    void addReadings(const ReadingBlock &readings);

    const StreamHeader &header() const { return m_header; }
    qint64 readings() const { return m_readings; }
    double firstTime() const { return m_firstTime; }
    double lastTime() const { return m_lastTime; }
    //! Pauses longer than three of the usual steps.
    qint64 gaps() const { return m_gaps; }
    const RunningStatistics &channel(int i) const { return m_channels[std::size_t(i)]; }
    const std::deque<Frame> &frames() const { return m_frames; }
    //! The latest reading's values; empty before the first.
    const std::vector<double> &lastValues() const { return m_lastValues; }

private:
    void noteStep(double step);

    StreamHeader m_header;
    PixelShape m_shape;
    std::vector<RunningStatistics> m_channels;
    std::deque<Frame> m_frames;
    std::vector<double> m_lastValues;
    qint64 m_readings = 0;
    qint64 m_gaps = 0;
    double m_firstTime = 0.0;
    double m_lastTime = 0.0;
    double m_usualStep = 0.0;
};

} // namespace Monitor
