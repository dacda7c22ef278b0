// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor {

/*! Finds the gaps in the times of a stream: steps longer than three of the usual steps.

    The usual step is known once two successive steps agree and do not belong to a burst. Readings that waited for a connection
    arrive as a burst, within milliseconds of each other, whatever their rate. No step is a gap before that. From then on the
    usual step slowly follows the steps of the stream, gaps left out. Many long steps in a row are not gaps: the rate of the
    stream has changed. */
class GapWatch
{
public:
    //! Returns whether this step, in seconds, is a gap. Readings of the same time have no step.
    bool isGap(double step)
    {
        constexpr int stepsOfAnotherRate = 8;
        if (!(step > 0.0))
            return false;
        if (!m_isKnown) {
            learn(step);
            return false;
        }
        const bool isLong = step > gapFactor * m_usualStep;
        m_longSteps = isLong ? m_longSteps + 1 : 0;
        if (m_longSteps >= stepsOfAnotherRate)
            m_usualStep = step;
        else if (!isLong)
            m_usualStep += follow * (step - m_usualStep);
        return isLong;
    }

private:
    static constexpr double gapFactor = 3.0, follow = 0.1;

    void learn(double step)
    {
        constexpr double longestBurst = 0.02; // s
        // Steps that never agree, as those of readings that come in pairs, are told by their mean.
        constexpr int enoughForMean = 64;
        const bool agrees = step <= gapFactor * m_usualStep && m_usualStep <= gapFactor * step;
        m_agreeing = agrees ? m_agreeing + step : step;
        m_usualStep = agrees ? m_usualStep + follow * (step - m_usualStep) : step;
        m_sum += step;
        if (++m_steps >= enoughForMean)
            m_usualStep = m_sum / m_steps;
        m_isKnown = (agrees && m_agreeing >= longestBurst) || m_steps >= enoughForMean;
    }

    double m_usualStep = 0.0;
    int m_longSteps = 0; //!< in a row
    bool m_isKnown = false;
    // Until the usual step is known:
    double m_agreeing = 0.0; //!< seconds of the newest steps, which agree
    double m_sum = 0.0;
    int m_steps = 0;
};

} // namespace Monitor
