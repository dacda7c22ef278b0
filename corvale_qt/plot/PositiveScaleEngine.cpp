// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PlotRange_p.h"
#include "corvale_qt/plot/PositiveScaleEngine_p.h"

#include <qwt_transform.h>

#include <algorithm>

namespace Corvale_Qt {

namespace {

constexpr double nineDecades = 1e-9;
constexpr double sixDecades = 1e-6;
constexpr double smallest = 1e-100; // what nine decades below it are still numbers that Qwt takes

//! Makes both bounds positive, the lower one not more than nine decades below the upper one.
void makePositive(double &x1, double &x2)
{
    x2 = isPlottable(x2) && x2 > smallest ? x2 : 1.0;
    x1 = x1 > 0.0 && x1 < x2 ? std::max(x1, nineDecades * x2) : sixDecades * x2;
}

//! Puts what is not positive far below the axis, where Qwt's own transformation has no number for it.
class PositiveTransform : public QwtLogTransform
{
public:
    double transform(double value) const override
    {
        return QwtLogTransform::transform(std::max(LogMin, value)); // LogMin for a NaN
    }
    QwtTransform *copy() const override { return new PositiveTransform; }
};

} // namespace

PositiveScaleEngine::PositiveScaleEngine()
{
    setTransformation(new PositiveTransform);
}

void PositiveScaleEngine::autoScale(int maxSteps, double &x1, double &x2, double &stepSize) const
{
    if (x1 > 0.0 && x1 == x2) {
        x1 *= 0.5; // a constant signal is shown within its decade
        x2 *= 2.0;
    }
    makePositive(x1, x2);
    QwtLogScaleEngine::autoScale(maxSteps, x1, x2, stepSize);
}

QwtScaleDiv PositiveScaleEngine::divideScale(double x1,
                                             double x2,
                                             int maxMajorSteps,
                                             int maxMinorSteps,
                                             double stepSize) const
{
    makePositive(x1, x2);
    return QwtLogScaleEngine::divideScale(x1, x2, maxMajorSteps, maxMinorSteps, stepSize);
}

} // namespace Corvale_Qt
