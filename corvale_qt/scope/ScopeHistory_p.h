// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/HistoryCurve_p.h"
#include "corvale_qt/plot/HistoryFrame_p.h"

#include <memory>
#include <vector>

class QwtPlot;

namespace Corvale_Qt {

class RVXDiscontinuousPlotCurve;

//! The blocks that a strip chart shows before its rows: an item of the plot for each curve, made when it is first needed.
class ScopeHistory
{
public:
    //! How many blocks a chart reads at most for each of its pixel columns.
    static constexpr int blocksOfColumn = 4;

    //! Draws with \a layer, which is not owned.
    ScopeHistory(QwtPlot *plot, CurveLayer *layer);

    //! Sets how many usual intervals without a row are an outage; 0, as at first, for none.
    void setGapIntervals(double intervals) { m_frame.setGapIntervals(intervals); }
    //! Finds the blocks of a window; none if \a history is null. They are shown by the next show() of each channel.
    void setWindow(const RVXPlotHistory *history, double left, double right);
    //! Returns the largest magnitude of a channel's blocks in the window, undivided; 0 without any.
    double largest(int channel) const;
    //! Returns whether blocks in the window hold readings of a channel that are 0 or negative.
    bool hasNotPositive(int channel) const;
    //! Shows a channel's blocks before its \a curve, below it, in its colour, divided by \a divisor.
    void show(int channel, const RVXDiscontinuousPlotCurve &curve, double divisor);
    void hide(int channel);
    //! Takes all blocks off the plot and forgets the history.
    void drop();

private:
    QwtPlot *m_plot;
    CurveLayer *m_layer;
    HistoryFrame m_frame;
    std::vector<std::unique_ptr<HistoryCurve>>
        m_curves; // of channel 1 and up; null until it is needed
};

} // namespace Corvale_Qt
