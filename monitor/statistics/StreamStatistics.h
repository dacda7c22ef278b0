// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/GapWatch.h"
#include "monitor/readings/PixelShape.h"
#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"
#include "monitor/statistics/FrameMoments.h"
#include "monitor/statistics/FrameNumbers.h"
#include "monitor/statistics/LimitLog.h"
#include "monitor/statistics/RunningStatistics.h"

#include <deque>

namespace Monitor {

//! Statistics of a whole stream, in memory that does not grow with the stream.
class StreamStatistics
{
public:
    //! The moments of one pixel frame, and its time in seconds.
    struct Frame
    {
        double time = 0.0;
        FrameMoments moments;
    };
    //! A pause between two readings, in seconds of the stream.
    struct Gap
    {
        double begin = 0.0; //!< the time of the reading before it
        double end = 0.0;

        double length() const { return end - begin; }
    };
    //! How many pixel frames are kept at most; the oldest go first.
    static constexpr std::size_t maxFrames = 10000;

    //! Begins a new acquisition and forgets the one before.
    void startStream(const StreamHeader &header);
    //! Adds readings; those with another number of values than the header are ignored.
    void addReadings(const ReadingBlock &readings);

    //! Replaces the limits of the channels in the middle of the stream.
    void setLimits(const QVector<Corvale_Qt::ChannelLimits> &limits);

    const StreamHeader &header() const { return m_header; }
    //! Returns when the readings were beyond the limits of their channels.
    const LimitLog &limitLog() const { return m_limitLog; }
    LimitLog &limitLog() { return m_limitLog; }
    //! Returns how many acquisitions have begun.
    qint64 acquisition() const { return m_acquisition; }
    //! Returns the number of readings.
    qint64 readings() const { return m_readings; }
    //! Returns the time of the first reading in seconds; 0 before it.
    double firstTime() const { return m_firstTime; }
    //! Returns the time of the latest reading in seconds; 0 before the first.
    double lastTime() const { return m_lastTime; }
    //! Returns the number of pauses longer than three of the usual steps.
    qint64 gaps() const { return m_gaps; }
    //! Returns the longest of them; it has no length if there is none.
    const Gap &longestGap() const { return m_longestGap; }
    //! Returns the statistics of a channel, counted from 0.
    const RunningStatistics &channel(int i) const { return m_channels[std::size_t(i)]; }
    //! Returns the numbers of the frames that were added last, one for each channel of the header; valid until the next call.
    const ReadingBlock &frameNumbers() const { return m_numbers; }
    //! Returns the latest value of each channel of the header, those of frames being computed; null before the first reading.
    const double *lastNumbers() const;
    //! Returns which readings of the latest frame belong to no cell.
    const LeftOut &leftOut() const { return m_frameNumbers.leftOut(); }
    //! Returns the moments of the latest frames, oldest first; empty for other streams than pixels.
    const std::deque<Frame> &frames() const { return m_frames; }
    //! Returns the values of the latest reading; empty before the first.
    const std::vector<double> &lastValues() const { return m_lastValues; }

private:
    void addRows(const ReadingBlock &rows);
    bool isAfterGap(double time);
    void noteGap();
    void noteFrame(double time, const double *values);

    StreamHeader m_header;
    LimitLog m_limitLog;
    PixelShape m_shape;
    std::vector<RunningStatistics> m_channels;
    std::deque<Frame> m_frames;
    FrameNumbers m_frameNumbers;
    ReadingBlock m_numbers;
    std::vector<double> m_lastValues;
    qint64 m_acquisition = 0;
    qint64 m_readings = 0;
    qint64 m_gaps = 0;
    Gap m_longestGap;
    double m_firstTime = 0.0;
    double m_lastTime = 0.0;
    GapWatch m_gapWatch;
};

} // namespace Monitor
