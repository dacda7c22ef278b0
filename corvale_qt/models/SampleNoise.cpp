// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/SampleNoise_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

//! Returns |a - 2b + c| of a reading and the two before; 0 for three on a line, whose rounding errors are not noise.
double differenceAt(const double *newest)
{
    constexpr double rounding = 8.0 * std::numeric_limits<double>::epsilon();
    const double difference = std::abs(newest[0] - 2.0 * newest[-1] + newest[-2]);
    return difference <= rounding * std::abs(newest[-1]) ? 0.0 : difference;
}

} // namespace

double sampleNoise(const PlotDataReader &reader, int column, int lastRow)
{
    constexpr int most = 32;
    constexpr int fewest = 3;
    // The median of |a - 2b + c| of three normal numbers is 0.6745 x sqrt(6) times their standard deviation.
    constexpr double medianOfDifferences = 1.6522;
    const int count = std::min(most, lastRow);
    double values[most]{};
    if (count > 0)
        reader.read(column, lastRow - count + 1, count, values);
    double differences[most]{};
    int found = 0;
    double squares = 0.0;
    double largest = 0.0;
    for (int i = 2; i < count; ++i) {
        const double difference = differenceAt(values + i);
        if (!std::isfinite(difference))
            continue;
        differences[found++] = difference;
        squares += difference * difference;
        largest = std::max(largest, difference);
    }
    if (found < fewest)
        return std::numeric_limits<double>::quiet_NaN();
    // Where a zero was subtracted, rounding errors are larger than the readings let expect. They are not noise.
    constexpr double ofLargest = 1e-9;
    for (double &difference : differences)
        difference = difference < ofLargest * largest ? 0.0 : difference;
    double *const middle = differences + found / 2;
    std::nth_element(differences, middle, differences + found);
    // Most neighbours are equal where a converter's steps are larger than the noise.
    return *middle > 0.0 ? *middle / medianOfDifferences : std::sqrt(squares / (6.0 * found));
}

} // namespace Corvale_Qt
