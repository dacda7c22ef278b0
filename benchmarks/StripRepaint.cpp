// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 1 compares a frame of the strip chart with fixed y with stock curves over copied points.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "Points.h"
#include "ScopeChart.h"
#include "StockChart.h"

namespace {

void measure(const QString &name, int channels, int samples, double limit)
{
    ChannelStack stack(channels, samples);
    ScopeChart ours(stack.top(), ScopeChart::FullRange);
    StockChart stock(ours);
    const auto faster = timesFaster(
        [&] {
            ours.drawFrame();
        },
        [&] {
            stock.drawFrame();
        });
    report({name + ", times faster than QwtPlotCurve", faster, Goal::AtLeast, limit});
    const double pixels = canvasWidth * canvasHeight;
    const double share = 100.0 * differingPixels(ours.picture(), stock.picture()) / pixels;
    report({name + ", % of pixels other than its", share, Goal::AtMost, 0.3});
}

} // namespace

void measureStripRepaint()
{
    measure("1a strip 64 x 100k", 64, 100000, 32.0);
    measure("1b strip 64 x 10k", 64, 10000, 7.0);
}
