// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/PixelMoments.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

using RoundPixelDetector::kSide;

constexpr double kCentre = kSide / 2.0;
constexpr double kSmallestSigma = 0.25;
constexpr double kHalfPi = 1.5707963267948966;

//! Second moments about a point, summed over the cells and weighted with the cells' values.
struct SecondMoments
{
    double xx = 0;
    double yy = 0;
    double xy = 0;
};

void placeReadings(const double *readings, int count, double discriminator, PixelMoments &moments)
{
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            const int reading = RoundPixelDetector::readingAt(row, column);
            // Written so that a NaN counts as 0, too.
            if (reading == RoundPixelDetector::kNotWired || reading >= count
                || !(readings[reading] >= discriminator))
                continue;
            moments.raster[row * kSide + column] = readings[reading];
            moments.max = std::max(moments.max, readings[reading]);
            moments.integral += readings[reading];
        }
    }
}

//! Returns the sums about the point (\a x, \a y), in columns and rows.
SecondMoments secondMoments(const PixelMoments &moments, double x, double y)
{
    SecondMoments sums;
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            const double dx = column - x;
            const double dy = row - y;
            const double value = moments.raster[row * kSide + column];
            sums.xx += dx * dx * value;
            sums.yy += dy * dy * value;
            sums.xy += dy * dx * value;
        }
    }
    return sums;
}

/*! Returns the direction of the major axis, but 0 for a beam exactly along a column or on a diagonal. Hosts compare
    this number with earlier results, so it stays; pictures use the axis angle. */
double reportedRotation(const SecondMoments &s)
{
    const double d = s.xx - s.yy;
    if (d == 0 || 2 * s.xy / d == 0)
        return 0;
    const double angle = std::atan(2 * s.xy / d) / 2;
    if (s.xy >= 0 && d <= 0)
        return angle - kHalfPi;
    if (s.xy < 0 && d < 0)
        return angle + kHalfPi;
    return angle;
}

double rootOrZero(double radicand)
{
    return radicand > 0 ? std::sqrt(radicand) : 0.0;
}

void takeWidths(const SecondMoments &s, PixelMoments &moments)
{
    const double difference = s.xx - s.yy;
    const double total = s.xx + s.yy;
    const double root = rootOrZero(4 * s.xy * s.xy + difference * difference);
    const auto principalSigma = [&moments](double sum) {
        return std::max(rootOrZero(sum / moments.integral) / std::sqrt(2.0), kSmallestSigma);
    };
    moments.rotation = reportedRotation(s);
    moments.axisAngle = std::atan2(2 * s.xy, difference) / 2;
    moments.sigmaMajor = principalSigma(total + root);
    moments.sigmaMinor = principalSigma(total - root);
    moments.elongation = moments.sigmaMajor / moments.sigmaMinor;
    moments.sigmaX = rootOrZero(s.xx / moments.integral);
    moments.sigmaY = rootOrZero(s.yy / moments.integral);
}

} // namespace

PixelMoments
computePixelMoments(const double *readings, int count, double discriminator, int layout)
{
    PixelMoments moments;
    if (layout != 1 && layout != 2)
        return moments;
    placeReadings(readings, count, discriminator, moments);
    moments.status = FitStatus::SignalBelowThreshold;
    moments.meanX = kCentre;
    moments.meanY = kCentre;
    if (!(moments.integral > 0))
        return moments;

    double columns = 0;
    double rows = 0;
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            columns += column * moments.raster[row * kSide + column];
            rows += row * moments.raster[row * kSide + column];
        }
    }
    const double x = columns / moments.integral;
    const double y = rows / moments.integral;
    const SecondMoments sums = secondMoments(moments, x, y);
    moments.status = FitStatus::NoRealWidth;
    // The moments of very large readings may overflow; such a frame is not valid.
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(sums.xx + sums.yy + sums.xy))
        return moments;
    takeWidths(sums, moments);
    moments.meanX = x + 0.5;
    moments.meanY = y + 0.5;
    moments.valid = true;
    moments.status = FitStatus::Ok;
    return moments;
}

} // namespace Corvale_Qt
