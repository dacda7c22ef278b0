// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/FiniteScaleEngine_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

double limited(double bound)
{
    constexpr double largest = 1e300;
    return std::isnan(bound) ? 0.0 : std::clamp(bound, -largest, largest);
}

} // namespace

void FiniteScaleEngine::autoScale(int maxSteps, double &x1, double &x2, double &stepSize) const
{
    x1 = limited(x1);
    x2 = limited(x2);
    QwtLinearScaleEngine::autoScale(maxSteps, x1, x2, stepSize);
}

QwtScaleDiv FiniteScaleEngine::divideScale(double x1,
                                           double x2,
                                           int maxMajorSteps,
                                           int maxMinorSteps,
                                           double stepSize) const
{
    return QwtLinearScaleEngine::divideScale(limited(x1),
                                             limited(x2),
                                             maxMajorSteps,
                                             maxMinorSteps,
                                             stepSize);
}

} // namespace Corvale_Qt
