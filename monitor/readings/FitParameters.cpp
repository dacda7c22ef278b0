// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/FitParameters.h"

#include <cmath>

namespace Monitor {

Corvale_Qt::EstimatorOptions FitParameters::options() const
{
    Corvale_Qt::EstimatorOptions options;
    options.regression.thresholdFraction = regression.at(0);
    options.regression.halfWidth = int(regression.at(1));
    options.regression.minimumPeak = regression.at(2);
    options.regression.weightPower = int(std::lround(regression.at(4)));
    options.centreOfGravity = Corvale_Qt::centreOfGravityOptions(centreOfGravity);
    return options;
}

} // namespace Monitor
