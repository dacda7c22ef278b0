// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/FrameAveraging_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

//! Returns the mean of frames, in which a flag of one is a flag of all.
DetectorFrame meanOf(const std::deque<DetectorFrame> &frames)
{
    DetectorFrame mean = frames.back();
    if (frames.size() == 1)
        return mean;
    double *values = mean.values.data();
    for (auto frame = frames.begin(); frame + 1 != frames.end(); ++frame) {
        const double *other = frame->values.constData();
        for (int i = 0; i < mean.values.size(); ++i)
            values[i] += other[i];
        if (frame->flags.isEmpty())
            continue;
        mean.flags.resize(mean.values.size());
        for (int i = 0; i < mean.flags.size(); ++i)
            mean.flags[i] |= frame->flags[i];
    }
    for (double &value : mean.values)
        value /= double(frames.size());
    return mean;
}

} // namespace

void FrameAveraging::setAveraged(int frames)
{
    m_averaged = std::clamp(frames, 1, mostFrames);
    while (m_frames.size() > std::size_t(m_averaged))
        m_frames.pop_front();
}

void FrameAveraging::takeBackground(int frames)
{
    m_wanted = m_missing = std::clamp(frames, 1, mostFrames);
    m_sum.clear();
}

void FrameAveraging::clearBackground()
{
    m_background.clear();
    m_backgroundFrames = 0;
    m_missing = 0;
    m_sum.clear();
}

DetectorFrame FrameAveraging::add(const DetectorFrame &frame)
{
    if (!m_frames.empty() && m_frames.back().layout != frame.layout)
        clear();
    collectBackground(frame);
    m_frames.push_back(frame);
    if (m_frames.size() > std::size_t(m_averaged))
        m_frames.pop_front();
    return processed();
}

DetectorFrame FrameAveraging::processed() const
{
    if (m_frames.empty())
        return {};
    DetectorFrame shown = meanOf(m_frames);
    const bool subtracts = m_isSubtracted && m_background.size() == shown.values.size();
    for (int i = 0; subtracts && i < shown.values.size(); ++i)
        shown.values[i] -= m_background[i];
    return shown;
}

void FrameAveraging::collectBackground(const DetectorFrame &frame)
{
    if (m_missing == 0)
        return;
    m_sum.resize(frame.values.size());
    for (int i = 0; i < m_sum.size(); ++i)
        m_sum[i] += frame.values[i];
    if (--m_missing > 0)
        return;
    for (double &value : m_sum)
        value /= m_wanted;
    m_background = m_sum;
    m_backgroundFrames = m_wanted;
    m_sum.clear();
}

void FrameAveraging::clear()
{
    m_frames.clear();
    clearBackground();
}

} // namespace Corvale_Qt
