// SPDX-License-Identifier: LGPL-2.1-or-later
// How keys move the markers of a scope from sample to sample, and through the blocks of older ones.
#include "corvale_qt/scope/ScopeMarkers_p.h"

#include <qwt_plot_marker.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

void ScopeMarkers::moveInStrip(int index, int steps)
{
    State &state = m_states[size_t(index)];
    if (!isAttached(index) || (state.row < 1 && !state.inBlocks))
        return;
    const RVXPlotHistory *history = RVXPlotHistory::of(m_model.plot());
    const int lastRow = m_model.lastRow();
    if (state.row < 1)
        steps = history ? moveInBlocks(index, steps) : 0;
    if (state.row >= 1 && lastRow >= 1) {
        const int row = state.row + steps;
        state.row = std::clamp(row, 1, lastRow);
        item(index)->setXValue(sampleX(m_model.reader(), state.row));
        if (row < 1 && history)
            moveInBlocks(index, row - 1);
    }
    if (index == 0)
        m_selects = true;
}

/*! Moves a marker by blocks of the history, each step to the shortest block that is next. Returns the steps that are left on the
    first row, which comes behind the newest block; without rows, the marker stays there. */
int ScopeMarkers::moveInBlocks(int index, int steps)
{
    State &state = m_states[size_t(index)];
    const RVXPlotHistory &history = *RVXPlotHistory::of(m_model.plot());
    for (; steps < 0; ++steps) {
        const double moment = HistoryPlace::momentBefore(history, item(index)->xValue());
        if (std::isnan(moment))
            return 0;
        item(index)->setXValue(moment);
        state.row = -1;
        state.onSample = false;
        state.inBlocks = true;
    }
    for (; steps > 0; --steps) {
        const double moment = HistoryPlace::momentAfter(history, item(index)->xValue());
        if (std::isnan(moment) && m_model.lastRow() < 1)
            return 0;
        if (std::isnan(moment)) {
            state.row = 1;
            state.onSample = true;
            state.inBlocks = false;
            return steps - 1;
        }
        item(index)->setXValue(moment);
    }
    return 0;
}

void ScopeMarkers::moveInSweep(int index, int steps, int sweepLength)
{
    State &state = m_states[size_t(index)];
    if (!isAttached(index) || state.sweepOffset < 0 || sweepLength < 1)
        return;
    const int last = m_lostOfSweep + sweepLength - 1;
    state.sweepOffset = std::clamp(state.sweepOffset + steps, m_lostOfSweep, last);
    if (index == 0)
        m_selects = true;
}

} // namespace Corvale_Qt
