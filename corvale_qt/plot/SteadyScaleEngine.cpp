// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/plot/SteadyScaleEngine_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

double fullScaleFor(double magnitude)
{
    if (!(magnitude > 0.0) || !isPlottable(magnitude))
        return 1.0;
    const double decade = std::pow(10.0, std::floor(std::log10(magnitude)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (magnitude <= factor * decade * (1.0 + 1e-12))
            return factor * decade;
    }
    return 10.0 * decade;
}

void SteadyScaleEngine::setSteady(bool on)
{
    m_isSteady = on;
    m_range.restart();
}

void SteadyScaleEngine::setFractions(double lowerFraction, double upperFraction)
{
    m_lowerFraction = lowerFraction;
    m_upperFraction = upperFraction;
    m_range.restart();
}

//! Returns the range that the axis would have for these data alone.
SteadyRange::Range SteadyScaleEngine::rangeFor(int maxSteps, double x1, double x2) const
{
    SteadyRange::Range range{x1, x2, 0.0};
    if (m_lowerFraction < m_upperFraction) {
        const double full = fullScaleFor(std::max(std::abs(x1), std::abs(x2)));
        range.lower = -full;
        range.upper = full;
    } else {
        FiniteScaleEngine::autoScale(maxSteps, range.lower, range.upper, range.step);
    }
    return range;
}

void SteadyScaleEngine::autoScale(int maxSteps, double &x1, double &x2, double &stepSize) const
{
    if (!isPlottable(x1) || !isPlottable(x2)) {
        FiniteScaleEngine::autoScale(maxSteps, x1, x2, stepSize);
        return;
    }
    const auto align = [this, maxSteps](double lower, double upper) {
        return rangeFor(maxSteps, lower, upper);
    };
    const SteadyRange::Range range =
        m_isSteady ? m_range.follow(x1, x2, align) : rangeFor(maxSteps, x1, x2);
    x1 = range.lower;
    x2 = range.upper;
    stepSize = range.step;
    if (m_lowerFraction < m_upperFraction) {
        x1 = -m_lowerFraction * range.lower;
        x2 = m_upperFraction * range.upper;
    }
}

} // namespace Corvale_Qt
