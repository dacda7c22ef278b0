// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/StripWindow_p.h"

#include <qwt_plot.h>

#include <QScrollBar>

#include <utility>

namespace Corvale_Qt {

ScopePlotMode::ScopePlotMode(RVXScopePlotViewPrivate &view)
    : d(view)
{
}

ScopePlotMode::~ScopePlotMode() = default;

void ScopePlotMode::moveMarker(int, int) { }

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
    request.sweepLength = d.sweep.length();
    request.width = d.model.plot()->PlotWidthHint();
    request.following = bar->value() == bar->maximum();
    request.scrollValue = bar->value();
    request.scrollUnits = m_scrollUnits;
    const StripWindow window = stripWindow(d.model.reader(), request);

    d.markers.begin();
    d.markers.findInStrip();
    d.curves.plotCurves(window.rows.first, window.rows.last, d.yScale.mode);
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
    d.showScrollBar(false);
    d.q_ptr->horizontalScrollBar()->setRange(0, 0); // what comes next is followed
    d.plot->updateAxes();
}

void StripPlotMode::moveMarker(int index, int steps)
{
    d.markers.moveInStrip(index, steps);
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
    if (refresh && !d.sweep.isComplete(last))
        d.sweep.rewind();
    if (!d.sweep.isComplete(last)) {
        if (last < 2)
            clear();
        return;
    }
    const RowRange sweep = d.sweep.next();
    const PlotColumnReader reader = d.model.reader();
    d.markers.begin();
    d.markers.findInSweep(sweep);
    d.curves.plotCurves(sweep.first, sweep.last, d.yScale.mode);
    d.sweep.advance();
    finish(sampleX(reader, sweep.first), sampleX(reader, sweep.last));
    if (d.sweep.isComplete(last))
        d.requestReplot();
}

void SweepPlotMode::clear()
{
    d.curves.detach();
    d.markers.clearLabels();
    d.plot->updateAxes();
}

void SweepPlotMode::moveMarker(int index, int steps)
{
    d.markers.moveInSweep(index, steps, d.sweep.length());
}

} // namespace Corvale_Qt
