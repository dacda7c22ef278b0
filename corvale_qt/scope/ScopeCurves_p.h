// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: the curves of the scope plot view.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include "corvale_qt/scope/ScopeMarkers_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <array>
#include <functional>
#include <memory>

class QwtPlot;

namespace Corvale_Qt {

class RVXDiscontinuousPlotCurve;

//! One curve a channel, each with the model's own series of the rows that are shown.
class ScopeCurves
{
public:
    ScopeCurves(QwtPlot *plot, const ScopeModel &model, ScopeMarkers &markers);
    ~ScopeCurves();

    int count() const { return m_count; }
    //! Makes \a count curves in place of those there are.
    void createCurves(int count);
    void clearCurves();
    void detach();
    //! Takes away what the curves read from the model.
    void dropData();

    //! Makes the series of a channel, which the caller owns; null where there is nothing to draw.
    using SeriesMaker = std::function<QwtSeriesData<QPointF> *(int channel)>;
    /*! Draws the channels that are shown, and lets the markers snap to them. The series begin with row \a firstRow of
        what the markers read. */
    void plotCurves(const SeriesMaker &makeSeries, int firstRow, int scaleMode);

private:
    void giveData(int channel, QwtSeriesData<QPointF> *series, int scaleMode);
    void givePen(int channel);

    QwtPlot *m_plot;
    const ScopeModel &m_model;
    ScopeMarkers &m_markers;
    int m_count = 0;
    // Before the curves, which use it to the end.
    CurveLayer m_layer;
    std::array<std::unique_ptr<RVXDiscontinuousPlotCurve>, ScopeModel::maximumChannels> m_curves;
};

} // namespace Corvale_Qt
