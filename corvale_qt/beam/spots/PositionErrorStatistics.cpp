// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/PositionErrorStatistics.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

struct Spread
{
    double mean = std::numeric_limits<double>::quiet_NaN();
    double sigma = std::numeric_limits<double>::quiet_NaN();
};

//! Computes mean and sample standard deviation of the finite values, in two passes.
Spread spreadOf(const double *values, int count)
{
    double sum = 0;
    int finite = 0;
    for (int i = 0; i < count; ++i) {
        if (std::isfinite(values[i])) {
            sum += values[i];
            ++finite;
        }
    }
    Spread spread;
    if (finite == 0)
        return spread;
    spread.mean = sum / finite;
    double squares = 0;
    for (int i = 0; i < count; ++i) {
        if (std::isfinite(values[i]))
            squares += (values[i] - spread.mean) * (values[i] - spread.mean);
    }
    if (finite > 1)
        spread.sigma = std::sqrt(squares / (finite - 1));
    return spread;
}

bool isOutside(double error, double tolerance)
{
    return std::isfinite(error) && std::abs(error) > tolerance;
}

} // namespace

PositionErrorStatistics positionErrorStatistics(const double *x,
                                                const double *y,
                                                int count,
                                                double toleranceX,
                                                double toleranceY)
{
    PositionErrorStatistics statistics;
    if (count <= 0)
        return statistics;
    const Spread spreadX = spreadOf(x, count);
    const Spread spreadY = spreadOf(y, count);
    const bool hasTolerance = toleranceX > 0 && toleranceY > 0;
    statistics.spots = count;
    statistics.meanX = spreadX.mean;
    statistics.meanY = spreadY.mean;
    statistics.sigmaX = spreadX.sigma;
    statistics.sigmaY = spreadY.sigma;
    statistics.outside = hasTolerance ? 0 : -1;
    for (int i = 0; i < count; ++i) {
        if (hasTolerance && (isOutside(x[i], toleranceX) || isOutside(y[i], toleranceY)))
            ++statistics.outside;
        const double length = std::hypot(x[i], y[i]);
        if (!std::isfinite(x[i]) || !std::isfinite(y[i])) {
            ++statistics.incomplete;
        } else if (!(length <= statistics.worst)) {
            statistics.worst = length;
            statistics.worstSpot = i;
        }
    }
    return statistics;
}

} // namespace Corvale_Qt
