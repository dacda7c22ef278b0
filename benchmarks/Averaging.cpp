// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 9 compares computing all averages with evaluating the recurrence cell by cell.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"

#include <boost/circular_buffer.hpp>

#include <cstring>
#include <vector>

using namespace Corvale_Qt;

namespace {

using Ring = boost::circular_buffer<double>;

//! Computes the averages of a column: A(1) = x(1), A(r) = (1 - 1/N) A(r - 1) + (1/N) x(r).
void averageCellByCell(const RVXAbstractPlotDataModel &model, int rows, int length, Ring &averages)
{
    const double alpha = 1.0 / length;
    averages[0] = model.doubleData(1, 1);
    for (int row = 2; row <= rows; ++row) {
        averages[size_t(row - 1)] =
            (1.0 - alpha) * averages[size_t(row - 2)] + alpha * model.doubleData(row, 1);
    }
}

bool equalToTheBit(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace

void measureAveraging()
{
    constexpr int channels = 256;
    constexpr int samples = 100000;
    constexpr int length = 16;
    MergedChannels merged(channels, samples);
    RVXAveragingProxyModel averaging;
    averaging.setSourceModel(&merged.table());
    std::vector<Ring> literal(channels, Ring(samples, 0.0));
    const double faster = timesFaster(
        [&] {
            averaging.setAveraging(length);
        },
        [&] {
            // It reads the models directly, which saves it the table's call.
            for (int i = 0; i < channels; ++i)
                averageCellByCell(merged.model(i), samples, length, literal[size_t(i)]);
        });
    bool equal = true;
    for (int channel = 1; channel <= channels; ++channel) {
        for (int row = 1; row <= samples; ++row) {
            equal = equal
                && equalToTheBit(averaging.doubleData(row, channel),
                                 literal[size_t(channel - 1)][size_t(row - 1)]);
        }
    }
    require(equal, "9 averages to the last bit");
    report({"9 averages anew 256 x 100k, N = 16, times cell by cell", faster, Goal::AtLeast, 5.0});
}
