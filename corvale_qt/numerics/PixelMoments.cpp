// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/PixelMoments_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr int no = PixelGrid::unused;

// clang-format off
constexpr int kReadingOfCell[PixelGrid::cells] = {
    no, no, no, 49, 43, 37,  27,  28,  29,  no,  no,  no,
    no, no, 54, 48, 42, 36,  23,  24,  25,  26,  no,  no,
    no, 58, 53, 47, 41, 35,  18,  19,  20,  21,  22,  no,
    61, 57, 52, 46, 40, 34,  12,  13,  14,  15,  16,  17,
    60, 56, 51, 45, 39, 33,   6,   7,   8,   9,  10,  11,
    59, 55, 50, 44, 38, 32,   0,   1,   2,   3,   4,   5,
    69, 68, 67, 66, 65, 64,  96, 102, 108, 114, 119, 123,
    75, 74, 73, 72, 71, 70,  97, 103, 109, 115, 120, 124,
    81, 80, 79, 78, 77, 76,  98, 104, 110, 116, 121, 125,
    no, 86, 85, 84, 83, 82,  99, 105, 111, 117, 122,  no,
    no, no, 90, 89, 88, 87, 100, 106, 112, 118,  no,  no,
    no, no, no, 93, 92, 91, 101, 107, 113,  no,  no,  no,
};
// clang-format on

constexpr double kCentre = PixelGrid::size / 2.0;
constexpr double kSmallestSigma = 0.25;
constexpr double kHalfPi = 1.5707963267948966;

//! Sums over the cells about the centroid, weighted with the cells' values.
struct SecondMoments
{
    double xx = 0;
    double yy = 0;
    double xy = 0;
};

void placeReadings(const std::array<double, PixelGrid::readings> &readings,
                   double discriminator,
                   PixelMoments &moments)
{
    for (int cell = 0; cell < PixelGrid::cells; ++cell) {
        const int reading = kReadingOfCell[cell];
        if (reading == no || !(readings[reading] >= discriminator)) // nor a NaN
            continue;
        moments.raster[cell] = readings[reading];
        moments.max = std::max(moments.max, readings[reading]);
        moments.integral += readings[reading];
    }
}

//! \a x and \a y: the centroid, in columns and rows.
SecondMoments secondMoments(const PixelMoments &moments, double x, double y)
{
    SecondMoments sums;
    for (int cell = 0; cell < PixelGrid::cells; ++cell) {
        const double dx = cell % PixelGrid::size - x;
        const double dy = cell / PixelGrid::size - y;
        const double value = moments.raster[cell];
        sums.xx += dx * dx * value;
        sums.yy += dy * dy * value;
        sums.xy += dy * dx * value;
    }
    return sums;
}

/*! In a step of its own: a beam exactly along a column, or exactly on a diagonal, reads 0 here. Kept for hosts
    that compare with readings taken before; pictures use the axis angle. */
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

int PixelGrid::readingOfCell(int cell)
{
    return cell >= 0 && cell < cells ? kReadingOfCell[cell] : unused;
}

PixelMoments computePixelMoments(const std::array<double, PixelGrid::readings> &readings,
                                 double discriminator,
                                 int layout)
{
    PixelMoments moments;
    if (layout != 1 && layout != 2)
        return moments;
    placeReadings(readings, discriminator, moments);
    moments.meanX = kCentre;
    moments.meanY = kCentre;
    if (!(moments.integral > 0))
        return moments;

    double columns = 0;
    double rows = 0;
    for (int cell = 0; cell < PixelGrid::cells; ++cell) {
        columns += cell % PixelGrid::size * moments.raster[cell];
        rows += cell / PixelGrid::size * moments.raster[cell];
    }
    const double x = columns / moments.integral;
    const double y = rows / moments.integral;
    const SecondMoments sums = secondMoments(moments, x, y);
    // Readings so large that their squares overflow have no moments.
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(sums.xx + sums.yy + sums.xy))
        return moments;
    takeWidths(sums, moments);
    moments.meanX = x + 0.5;
    moments.meanY = y + 0.5;
    moments.valid = true;
    return moments;
}

} // namespace Corvale_Qt
