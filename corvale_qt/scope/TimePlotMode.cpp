// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SampleNoise_p.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/ScopeSurface_p.h"
#include "corvale_qt/scope/TimePlotMode_p.h"

#include <qwt_plot.h>

#include <cmath>

namespace Corvale_Qt {

void TimePlotMode::enter()
{
    m_context.histogram.detach();
    m_context.statistics.hide();
    m_context.limits.hide();
    m_context.triggerMarks.hide();
    m_context.surface.showOnly(m_context.plot);
    m_context.axes.prepareTimeAxis();
    m_context.timeAxis.setFromTrigger(false);
    m_context.timeAxis.restart();
    followUnits();
    setAxisTitles(); // the first sweep may take long to complete
}

ScopeMarkerStatistics TimePlotMode::markerStatistics() const
{
    return m_context.markers.statistics();
}

bool TimePlotMode::showsReadings() const
{
    return m_context.curves.showReadings();
}

void TimePlotMode::setDrawn(const PlotDataReader &reader, RowRange rows)
{
    m_drawnReader = reader;
    m_drawnRows = rows;
}

HoverReading TimePlotMode::readingAt(double x) const
{
    HoverReading reading;
    const int row = nearestRow(m_drawnReader, m_drawnRows, x);
    if (row < 1)
        return reading;
    const double pixel = m_context.plot->axisInterval(QwtPlot::xBottom).width() / 1000.0;
    // Before the first sample and after the last one, the pointer must be close to the sample to mean it.
    constexpr double besidePixels = 20.0;
    const double stamp = sampleX(m_drawnReader, row);
    const bool isEnd = row == m_drawnRows.first || row == m_drawnRows.last;
    if (isEnd && std::abs(stamp - x) > besidePixels * pixel)
        return reading;
    const ScopeModel &model = m_context.model;
    reading.x = stamp;
    reading.place = placeText(model, reading.x, pixel);
    for (int channel = 1; channel <= m_context.curves.count(); ++channel) {
        if (!m_context.curves.isDrawn(channel))
            continue;
        MarkedSample sample{reading.x, channel};
        m_drawnReader.read(channel, row, 1, &sample.value);
        if (model.hasSiPrefix())
            sample.noise = sampleNoise(m_drawnReader, channel, row);
        reading.channels.append(
            {model.name(channel), hoverText(model, sample), model.brush(channel).color()});
    }
    return reading;
}

void TimePlotMode::followUnits()
{
    const bool isRelative = m_context.yScale.mode == RVXScopePlotView::Normalized;
    m_context.followUnits(isRelative ? ScopeAxes::Show::AllUnits : ScopeAxes::Show::TwoUnits);
}

void TimePlotMode::showNoCurves()
{
    m_context.curves.detach();
    m_context.gaps.hide();
    m_context.hideNote();
    followUnits();
    if (m_context.model.lastRow() < 2) { // one sample draws nothing either
        m_context.axes.showEmpty();
        m_context.timeAxis.showEmpty(m_context.stripWidth());
    }
    setAxisTitles();
    m_context.axes.update();
}

void TimePlotMode::finish(double left, double right)
{
    m_context.timeAxis.show(left, right);
    if (m_context.yScale.mode == RVXScopePlotView::Normalized)
        m_context.limits.hide(); // each curve has a separate scale
    else
        m_context.limits.showOverTime();
    for (int i = 0; i < ScopeMarkers::count; ++i)
        m_context.markers.setStripMarker(i, {left, right});
    setAxisTitles();
    const bool isLogarithmic = m_context.yScale.isLogarithmic;
    m_context.noteHidden(isLogarithmic ? m_context.curves.namesOfNotPositive() : QStringList());
    m_context.holdYAxis();
    m_context.axes.update();
}

void TimePlotMode::setAxisTitles()
{
    m_context.showYTitles();
    m_context.axes.setXTitle(xTitle());
}

QString TimePlotMode::xTitle() const
{
    return m_context.timeAxis.title();
}

} // namespace Corvale_Qt
