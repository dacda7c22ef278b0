// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 8 measures the cost of a sample, and of a point, in a merged table.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"

using namespace Corvale_Qt;

namespace {

void measureSamples()
{
    constexpr int samples = 256 * 40;
    const int full = int(RVXAbstractDeviceDataModel::maxBufferSize);
    MergedChannels few(8, full);
    MergedChannels many(256, full);
    const auto feed = [](MergedChannels &merged) {
        for (int i = 0; i < samples; i += merged.channels())
            merged.tick();
    };
    const double growth = timesFaster(
        [&] {
            feed(few);
        },
        [&] {
            feed(many);
        },
        15);
    require(few.table().rowCount() == full + 1 && many.table().rowCount() == full + 1,
            "8a full buffers");
    report({"8a a sample among 256 channels, times one among 8", growth, Goal::AtMost, 1.5});
}

double sumOfPoints(const RVXAbstractPlotDataModel &model, int rows)
{
    double sum = 0.0;
    for (int row = 1; row <= rows; ++row)
        sum += model.doubleData(row, 0) + model.doubleData(row, 1);
    return sum;
}

void measurePoints()
{
    constexpr int samples = 100000;
    MergedChannels merged(8, samples);
    double direct = 0.0;
    double through = 0.0;
    const double share = timesFaster(
        [&] {
            direct = sumOfPoints(merged.model(0), samples);
        },
        5,
        [&] {
            through = sumOfPoints(merged.table(), samples);
        },
        5);
    require(direct == through, "8b the points");
    report({"8b a point read through the table, times directly", share, Goal::AtMost, 1.8});
}

} // namespace

void measureMergedChannels()
{
    measureSamples();
    measurePoints();
}
