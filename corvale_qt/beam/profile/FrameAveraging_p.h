// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/detector/DetectorFrame.h"

#include <deque>

namespace Corvale_Qt {

/*! Averages the last frames and subtracts a background from them. All frames have one layout; a frame of another one starts
    everything again. Flags add up: a cell that was saturated in one of the frames is saturated in their mean. */
class FrameAveraging
{
public:
    static constexpr int mostFrames = 100;

    //! Sets how many frames are averaged, 1 to 100.
    void setAveraged(int frames);
    int averaged() const { return m_averaged; }
    //! Takes the mean of the next \a frames as background, which replaces the one before when it is complete.
    void takeBackground(int frames);
    void clearBackground();
    void setSubtracted(bool subtracted) { m_isSubtracted = subtracted; }

    bool isSubtracted() const { return m_isSubtracted; }
    bool hasBackground() const { return !m_background.isEmpty(); }
    //! Returns of how many frames the background is the mean.
    int backgroundFrames() const { return m_backgroundFrames; }
    //! Returns how many frames of the background that is being taken are still to come.
    int missingFrames() const { return m_missing; }

    //! Adds a frame and returns what is to be shown: the mean of the last frames, less the background.
    DetectorFrame add(const DetectorFrame &frame);
    //! Returns what is to be shown of the frames that were added; a frame without values if there are none.
    DetectorFrame processed() const;
    //! Forgets all frames and the background.
    void clear();

private:
    void collectBackground(const DetectorFrame &frame);

    int m_averaged = 1;
    std::deque<DetectorFrame> m_frames;
    bool m_isSubtracted = true;
    QVector<double> m_background;
    int m_backgroundFrames = 0;
    QVector<double> m_sum;
    int m_wanted = 0;
    int m_missing = 0;
};

} // namespace Corvale_Qt
