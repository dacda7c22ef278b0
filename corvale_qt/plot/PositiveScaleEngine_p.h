// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_engine.h>

namespace Corvale_Qt {

/*! A logarithmic scale for data that may have any sign and magnitude: what is not positive has no place on it. An axis that
    follows the data shows at most nine decades, and six if some data are not positive. */
class PositiveScaleEngine : public QwtLogScaleEngine
{
public:
    PositiveScaleEngine();
    void autoScale(int maxSteps, double &x1, double &x2, double &stepSize) const override;
    QwtScaleDiv divideScale(double x1,
                            double x2,
                            int maxMajorSteps,
                            int maxMinorSteps,
                            double stepSize) const override;
};

} // namespace Corvale_Qt
