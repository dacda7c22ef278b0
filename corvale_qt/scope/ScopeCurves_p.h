// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/CurveLayer_p.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include "corvale_qt/scope/ScopeHistory_p.h"
#include "corvale_qt/scope/ScopeMarkers_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <array>
#include <functional>
#include <memory>

class QwtPlot;

namespace Corvale_Qt {

class RVXDiscontinuousPlotCurve;
class ScopeAxes;

//! The curves of the plot, one for each channel, each with the series that the model makes of the rows shown.
class ScopeCurves
{
public:
    ScopeCurves(QwtPlot *plot,
                const ScopeModel &model,
                const ScopeAxes &axes,
                ScopeMarkers &markers);
    ~ScopeCurves();

    int count() const { return m_count; }
    //! Replaces all curves by \a count new ones.
    void createCurves(int count);
    void clearCurves();
    //! Takes all curves off the plot; they keep their data.
    void detach();
    //! Takes all curves off the plot and deletes their series, which read from the model.
    void dropData();

    //! Returns the samples to which no line leads, as rising indexes into each series that is plotted.
    QVector<int> &breaks() { return m_layer.breaks(); }

    //! Returns whether a curve on the plot has a finite sample.
    bool showReadings() const;

    //! Draws the curve of a channel above the others, and wider if it has few samples; 0 for none.
    void setRaised(int channel);
    int raised() const { return m_raised; }
    //! Returns whether the curve of a channel, counted from 1, is on the plot.
    bool isDrawn(int channel) const;
    //! Sets whether the axes show only a part of the curves, which are then clipped in every scale mode.
    void setZoomed(bool zoomed) { m_isZoomed = zoomed; }

    //! Returns the names of the channels on the plot that have a sample which is 0 or negative.
    QStringList namesOfNotPositive() const;

    //! Sets the pixel columns of the x axis, if it moves by whole ones; the picture of dense curves is then kept.
    void setGrid(const PixelGrid &grid) { m_layer.setGrid(grid); }

    //! Returns the blocks that are shown before the rows. A mode that shows some sets their window before each plotCurves().
    ScopeHistory &history() { return m_history; }

    //! Makes the series of a channel, which the caller owns, or null if there is nothing to draw.
    using SeriesMaker = std::function<QwtSeriesData<QPointF> *(int channel)>;
    /*! Draws the channels that are shown, each on its y axis, and lets the markers snap to them. \a firstRow is the row of the first sample
        of each series, counted as the markers count rows; \a scaleMode is a PlotScales value. */
    void plotCurves(const SeriesMaker &makeSeries, int firstRow, int scaleMode);

private:
    double giveData(int channel, QwtSeriesData<QPointF> *series, int scaleMode);
    void givePen(int channel);

    QwtPlot *m_plot;
    const ScopeModel &m_model;
    const ScopeAxes &m_axes;
    ScopeMarkers &m_markers;
    int m_count = 0;
    int m_raised = 0; //!< the channel above the others; 0 for none
    bool m_isZoomed = false;
    bool m_isLogarithmic = false; //!< the y axis of the plot that is being made
    // Declared before the curves, which use it until they are destroyed.
    CurveLayer m_layer;
    ScopeHistory m_history;
    std::array<std::unique_ptr<RVXDiscontinuousPlotCurve>, ScopeModel::maximumChannels> m_curves;
};

} // namespace Corvale_Qt
