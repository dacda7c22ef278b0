// SPDX-License-Identifier: LGPL-2.1-or-later
// What a scope plot view watches its readings for: gaps, limits and the trigger of sweeps.
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

namespace Corvale_Qt {

double RVXScopePlotView::gapIntervals() const
{
    Q_D(const RVXScopePlotView);
    return d->context.gaps.intervals();
}

void RVXScopePlotView::setGapIntervals(double intervals)
{
    Q_D(RVXScopePlotView);
    if (!(intervals >= 0.0)
        || intervals == d->context.gaps.intervals()) // NaN is no number of intervals
        return;
    d->context.gaps.setIntervals(intervals);
    RequestReplotRefresh();
    Q_EMIT gapIntervalsChanged(intervals);
}

} // namespace Corvale_Qt
