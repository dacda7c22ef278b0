// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/OutageBands_p.h"
#include "corvale_qt/scope/TimeGaps_p.h"

#include <QVector>

class QwtPlot;

namespace Corvale_Qt {

class ScopeCurves;

//! Shows where readings are missing: breaks the lines of the curves there and shades the time.
class ScopeGaps
{
public:
    explicit ScopeGaps(QwtPlot *plot);

    //! Sets how many usual intervals without a reading are an outage; 0, as at first, for none.
    void setIntervals(double intervals);
    double intervals() const { return m_strip.intervals(); }
    //! Returns the gaps among the rows of the model, which are up to date after showStrip().
    TimeGaps &ofModel() { return m_strip; }

    //! Shows the gaps among the visible \a rows of a model that has \a lastRow rows.
    const TimeGaps &
    showStrip(ScopeCurves &curves, const PlotDataReader &reader, RowRange rows, int lastRow);
    //! Shows the gaps among all \a size samples of a sweep.
    const TimeGaps &showSweep(ScopeCurves &curves, const PlotDataReader &reader, int size);
    //! Takes the shades off the plot.
    void hide();

private:
    void
    show(const TimeGaps &gaps, ScopeCurves &curves, const PlotDataReader &reader, RowRange rows);

    QwtPlot *m_plot;
    TimeGaps m_strip;
    TimeGaps m_sweep;
    OutageBands m_bands;
};

} // namespace Corvale_Qt
