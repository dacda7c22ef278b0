// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/StripWindow_p.h"

#include <qwt_plot.h>

#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

ScopePlotMode::ScopePlotMode(RVXScopePlotViewPrivate &view)
    : d(view)
{
}

ScopePlotMode::~ScopePlotMode() = default;

void ScopePlotMode::moveMarker(int, int) { }

bool ScopePlotMode::showSample(double)
{
    return false;
}

void TimePlotMode::enter()
{
    d.histogram.detach();
    d.statistics.hide();
    d.showOnly(d.plot);
    d.axes.prepareTimeAxis();
    setStripAxisTitles(); // the first sweep may be long in coming
}

void TimePlotMode::finish(double left, double right)
{
    d.axes.setTimeRange(left, right);
    for (int i = 0; i < ScopeMarkers::count; ++i)
        d.markers.setStripMarker(i, {left, right});
    setStripAxisTitles();
    d.plot->updateAxes();
}

void TimePlotMode::setStripAxisTitles()
{
    d.axes.setYTitle(d.yTitle());
    d.axes.setXTitle(d.model.xUnitName());
}

void StripPlotMode::enter()
{
    TimePlotMode::enter();
    d.showScrollBar(true);
}

void StripPlotMode::plot()
{
    QScrollBar *bar = d.q_ptr->horizontalScrollBar();
    StripRequest request;
    request.samples = d.model.lastRow();
    if (request.samples < 2) {
        clear();
        return;
    }
    request.sweepLength = d.stripLength();
    request.width = d.model.plot()->PlotWidthHint();
    request.following = bar->value() == bar->maximum();
    request.scrollValue = bar->value();
    request.scrollUnits = m_scrollUnits;
    const PlotColumnReader reader = d.model.reader();
    d.stripStart.update(reader, request);
    request.first = d.stripStart.row();
    const StripWindow window = stripWindow(reader, request);

    d.markers.begin(reader, {1, request.samples});
    d.markers.findInStrip();
    const auto ofModel = [model = d.model.plot(), rows = window.rows](int channel) {
        return model->seriesData(channel, rows.first, rows.last);
    };
    d.curves.plotCurves(ofModel, window.rows.first, d.yScale.mode);
    if (window.left > window.oldest || !request.following)
        d.showScrollBar(true);
    finish(window.left, window.right);

    const StripScrollBar scrolling = stripScrollBar(window, request);
    m_scrollUnits = scrolling.units;
    bar->setRange(0, scrolling.maximum);
    bar->setPageStep(scrolling.pageStep);
    bar->setSingleStep(scrolling.singleStep);
    bar->setValue(scrolling.value);
}

void StripPlotMode::clear()
{
    d.curves.detach();
    d.markers.detachAll();
    setStripAxisTitles();
    d.showScrollBar(false);
    d.q_ptr->horizontalScrollBar()->setRange(0, 0); // what comes next is followed
    d.plot->updateAxes();
}

void StripPlotMode::moveMarker(int index, int steps)
{
    d.markers.moveInStrip(index, steps);
}

bool StripPlotMode::showSample(double x)
{
    const QwtInterval shown = d.plot->axisInterval(QwtPlot::xBottom);
    if (shown.contains(x))
        return false;
    const double oldest = sampleX(d.model.reader(), d.stripStart.row());
    const double left = x - 0.5 * shown.width();
    d.q_ptr->horizontalScrollBar()->setValue(toScrollUnits((left - oldest) * m_scrollUnits));
    return true;
}

void SweepPlotMode::enter()
{
    TimePlotMode::enter();
    d.showScrollBar(false);
    // What the strip chart drew is no sweep; the last one will do until the next is complete.
    d.curves.detach();
    d.refreshAsked = true;
}

void SweepPlotMode::plot()
{
    const int last = d.model.lastRow();
    const bool refresh = std::exchange(d.refreshAsked, false);
    if (d.model.plot())
        d.sweep.setLengthHint(d.model.plot()->PlotWidthHintPoints());
    d.sweep.skipToNewest(last);
    if (d.sweep.isComplete(last)) {
        d.sweep.advance();
        d.sweepSamples.take(d.model, d.sweep.shown());
        draw();
        if (d.sweep.isComplete(last))
            d.requestReplot();
    } else if (last < 2) {
        clear();
    } else if (refresh && d.sweepSamples.size() > 0) {
        drawAgain(last);
    }
}

//! Draws the sweep with the model's present values, or with the copied ones if samples have left the model.
void SweepPlotMode::drawAgain(int lastRow)
{
    const RowRange shown = d.sweep.shown();
    const RowRange left{std::max(shown.first, 1), std::min(shown.last, lastRow)};
    if (left.size() == d.sweepSamples.size()) {
        d.sweepSamples.take(d.model, left);
    } else if (d.sweepChanged || !d.sweepSamples.hasUnitOf(d.model)) {
        // What is kept is wrong now, and the model has only a part of the sweep, or none.
        if (left.size() < 2) {
            clear();
            return;
        }
        d.sweepSamples.take(d.model, left);
        d.sweep.narrowShown(left);
    }
    draw();
}

void SweepPlotMode::draw()
{
    d.sweepChanged = false;
    const int size = d.sweepSamples.size();
    const PlotColumnReader reader(&d.sweepSamples);
    d.markers.begin(reader, d.sweep.shown());
    d.markers.findInSweep(size);
    const auto kept = [this](int channel) {
        return d.sweepSamples.series(channel);
    };
    d.curves.plotCurves(kept, 1, d.yScale.mode);
    finish(sampleX(reader, 1), sampleX(reader, size));
}

void SweepPlotMode::clear()
{
    d.curves.detach();
    d.sweepSamples.clear();
    d.markers.clearLabels();
    setStripAxisTitles();
    d.plot->updateAxes();
}

void SweepPlotMode::moveMarker(int index, int steps)
{
    d.markers.moveInSweep(index, steps, d.sweepSamples.size());
}

} // namespace Corvale_Qt
