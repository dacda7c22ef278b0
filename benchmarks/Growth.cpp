// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 13 checks that no time grows faster than the size of the data: the slope of log(time) over log(size).
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "ScopeChart.h"
#include "SpotChart.h"

#include <cmath>
#include <functional>
#include <vector>

namespace {

struct Measured
{
    double size;
    double seconds;
};

//! Returns the slope of the least-squares line through the points.
double slope(const std::vector<Measured> &points)
{
    double meanX = 0.0;
    double meanY = 0.0;
    for (const Measured &point : points) {
        meanX += std::log(point.size) / double(points.size());
        meanY += std::log(point.seconds) / double(points.size());
    }
    double xx = 0.0;
    double xy = 0.0;
    for (const Measured &point : points) {
        const double x = std::log(point.size) - meanX;
        xx += x * x;
        xy += x * (std::log(point.seconds) - meanY);
    }
    return xy / xx;
}

void measure(const QString &name,
             const std::vector<int> &sizes,
             const std::function<double(int)> &secondsOf)
{
    std::vector<Measured> points;
    for (int size : sizes)
        points.push_back({double(size), secondsOf(size)});
    report({name + ", slope", slope(points), Goal::AtMost, 1.0});
}

} // namespace

void measureGrowth()
{
    measure("13a repaint over visible samples", {256, 2560, 25600, 100000}, [](int samples) {
        ChannelStack stack(8, samples);
        ScopeChart chart(stack.top(), ScopeChart::AutoScale);
        return medianSeconds(
            [&] {
                chart.drawFrame();
            },
            15);
    });
    measure("13b a sample over channels", {4, 16, 64, 256}, [](int channels) {
        constexpr int samples = 256 * 20;
        MergedChannels merged(channels, 1000);
        return medianSeconds([&] {
                   for (int i = 0; i < samples; i += channels)
                       merged.tick();
               })
            / samples;
    });
    measure("13c a map anew over spots", {100, 1000, 10000}, [](int spots) {
        SpotChart map(spots);
        return medianSeconds([&] {
            map.drawAnew();
        });
    });
}
