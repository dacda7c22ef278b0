// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/models/SampleNoise_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

double sampleNoise(const PlotColumnReader &reader, int column, int lastRow)
{
    constexpr int most = 32;
    constexpr int fewest = 3;
    // The median of |a - b| of two normal numbers is 0.9539 times their standard deviation.
    constexpr double medianOfDifferences = 0.9539;
    const int count = std::min(most, lastRow);
    if (count <= fewest)
        return 0.0;
    double values[most];
    reader.read(column, lastRow - count + 1, count, values);
    double differences[most];
    int found = 0;
    double squares = 0.0;
    for (int i = 1; i < count; ++i) {
        const double difference = std::abs(values[i] - values[i - 1]);
        if (!std::isfinite(difference))
            continue;
        differences[found++] = difference;
        squares += difference * difference;
    }
    if (found < fewest)
        return 0.0;
    double *const middle = differences + found / 2;
    std::nth_element(differences, middle, differences + found);
    // Most neighbours are equal where a converter's steps are larger than the noise.
    return *middle > 0.0 ? *middle / medianOfDifferences : std::sqrt(0.5 * squares / found);
}

} // namespace Corvale_Qt
