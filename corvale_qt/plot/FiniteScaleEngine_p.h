// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_engine.h>

namespace Corvale_Qt {

/*! A linear scale engine for data of any magnitude. Qwt's tick builder never returns from infinite bounds, and its
    steps overflow near the largest double, so bounds are limited to +-1e300 before Qwt sees them; a NaN becomes 0. */
class FiniteScaleEngine : public QwtLinearScaleEngine
{
public:
    void autoScale(int maxSteps, double &x1, double &x2, double &stepSize) const override;
    QwtScaleDiv divideScale(double x1,
                            double x2,
                            int maxMajorSteps,
                            int maxMinorSteps,
                            double stepSize) const override;
};

} // namespace Corvale_Qt
