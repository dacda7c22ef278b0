// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 4: y that follows the samples, automatic or normalised, against y that is fixed.
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
        // A frame makes each curve a new series, so nothing is known of it from the frame before.
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
