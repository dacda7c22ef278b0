// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor {

//! Finds the gaps in the times of a stream: steps longer than three of the usual steps.
class GapWatch
{
public:
    /*! Returns whether this step, in seconds, is a gap. The usual step follows the steps of the stream slowly, without
        the gaps. Many long steps in a row are no gaps any more: the stream has another rate. Readings that came together
        have no step. */
    bool isGap(double step)
    {
        constexpr double gapFactor = 3.0, follow = 0.1;
        constexpr int stepsOfAnotherRate = 8;
        const bool isLong = m_usualStep > 0.0 && step > gapFactor * m_usualStep;
        m_longSteps = isLong ? m_longSteps + 1 : 0;
        if (m_usualStep <= 0.0 || m_longSteps >= stepsOfAnotherRate)
            m_usualStep = step;
        else if (!isLong && step > 0.0)
            m_usualStep += follow * (step - m_usualStep);
        return isLong;
    }

private:
    double m_usualStep = 0.0;
    int m_longSteps = 0; //!< in a row
};

} // namespace Monitor
