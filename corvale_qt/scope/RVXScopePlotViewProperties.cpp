// SPDX-License-Identifier: LGPL-2.1-or-later
// What a host reads and sets on a scope plot view as properties, and what it reads of the markers.
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"

#include <qwt_plot.h>

#include <cmath>

namespace Corvale_Qt {

void RVXScopePlotView::setDetectorLayout(const DetectorLayout &layout)
{
    Q_D(RVXScopePlotView);
    if (layout == d->context.statistics.places().layout())
        return;
    d->context.statistics.setDetector(layout);
    if (d->mode == HistogramMode) {
        d->currentMode().enter();
        RequestReplot();
    }
    d->announceLater();
}

DetectorLayout RVXScopePlotView::detectorLayout() const
{
    Q_D(const RVXScopePlotView);
    return d->context.statistics.places().layout();
}

void RVXScopePlotView::setPlotMode(PlotMode mode)
{
    Q_D(RVXScopePlotView);
    d->setMode(mode);
}

RVXScopePlotView::PlotMode RVXScopePlotView::plotMode() const
{
    Q_D(const RVXScopePlotView);
    return PlotMode(d->mode);
}

double RVXScopePlotView::yMinimum() const
{
    return range().first;
}

double RVXScopePlotView::yMaximum() const
{
    return range().second;
}

void RVXScopePlotView::setYMinimum(double minimum)
{
    Q_D(RVXScopePlotView);
    d->setRange({minimum, yMaximum()});
}

void RVXScopePlotView::setYMaximum(double maximum)
{
    Q_D(RVXScopePlotView);
    d->setRange({yMinimum(), maximum});
}

void RVXScopePlotView::setYScaleMode(PlotScales mode)
{
    SetYScaleMode(int(mode));
}

bool RVXScopePlotView::isPositiveOnly() const
{
    Q_D(const RVXScopePlotView);
    return d->context.yScale.positiveOnly;
}

double RVXScopePlotView::timeSpan() const
{
    Q_D(const RVXScopePlotView);
    return d->context.span.time;
}

void RVXScopePlotView::setTimeSpan(double span)
{
    Q_D(RVXScopePlotView);
    if (!(span >= 0.0) || span == d->context.span.time) // NaN is not a span
        return;
    d->context.span.time = span;
    d->spanChanged();
    Q_EMIT timeSpanChanged(span);
}

bool RVXScopePlotView::beginsAtFirst() const
{
    Q_D(const RVXScopePlotView);
    return d->context.beginsAtFirst;
}

void RVXScopePlotView::setBeginAtFirst(bool begin)
{
    Q_D(RVXScopePlotView);
    if (begin == d->context.beginsAtFirst)
        return;
    d->context.beginsAtFirst = begin;
    d->spanChanged();
    Q_EMIT beginAtFirstChanged(begin);
}

bool RVXScopePlotView::movesByPixels() const
{
    Q_D(const RVXScopePlotView);
    return d->context.movesByPixels;
}

void RVXScopePlotView::setMovesByPixels(bool on)
{
    Q_D(RVXScopePlotView);
    if (on == d->context.movesByPixels)
        return;
    d->context.movesByPixels = on;
    if (d->mode == StripMode)
        RequestReplotRefresh();
    Q_EMIT movesByPixelsChanged(on);
}

std::pair<double, double> RVXScopePlotView::shownTimes() const
{
    Q_D(const RVXScopePlotView);
    if (!RVXScopePlotViewPrivate::isTimeMode(d->mode))
        return {std::nan(""), std::nan("")};
    const QwtInterval shown = d->plot->axisInterval(QwtPlot::xBottom);
    const double origin = d->mode == ScopeMode ? d->context.sweepSamples.origin() : 0.0;
    return {origin + shown.minValue(), origin + shown.maxValue()};
}

int RVXScopePlotView::sweepLength() const
{
    Q_D(const RVXScopePlotView);
    return d->context.sweep.length();
}

int RVXScopePlotView::sampleSpan() const
{
    Q_D(const RVXScopePlotView);
    return d->context.span.samples;
}

void RVXScopePlotView::setSampleSpan(int samples)
{
    Q_D(RVXScopePlotView);
    if (samples < 0 || samples == d->context.span.samples)
        return;
    d->context.span.samples = samples;
    d->spanChanged();
    Q_EMIT sampleSpanChanged(samples);
}

bool RVXScopePlotView::areMarkersEnabled() const
{
    Q_D(const RVXScopePlotView);
    return d->markersEnabled;
}

ScopeMarkerStatistics RVXScopePlotView::markerStatistics() const
{
    // The plot that is pending is made now, as a repaint would.
    RVXScopePlotViewPrivate *const d = d_ptr.get();
    d->plotForMarkers();
    return d->currentMode().markerStatistics();
}

bool RVXScopePlotView::showsReadings() const
{
    Q_D(const RVXScopePlotView);
    return model() && d->currentMode().showsReadings();
}

} // namespace Corvale_Qt
