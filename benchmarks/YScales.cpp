// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 4 compares y scales that follow the samples, automatic or normalised, with a fixed one.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"
#include "ScopeChart.h"

void measureYScales()
{
    ChannelStack stack(64, 100000);
    ScopeChart fixed(stack.top(), ScopeChart::FullRange);
    const struct
    {
        const char *name;
        ScopeChart::PlotScales scale;
    } cases[] = {
        {"4a automatic y 64 x 100k, share of fixed y's time", ScopeChart::AutoScale},
        {"4b normalised y 64 x 100k, share of fixed y's time", ScopeChart::Normalized},
    };
    for (const auto &each : cases) {
        // Each frame gives the curves new series, so it cannot reuse what the frame before found.
        ScopeChart following(stack.top(), each.scale);
        const double share = timesFaster(
            [&] {
                fixed.drawFrame();
            },
            [&] {
                following.drawFrame();
            },
            15);
        report({each.name, share, Goal::AtMost, 1.25});
    }
}
