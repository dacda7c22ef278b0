// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/ScopeSurface_p.h"
#include "corvale_qt/scope/SweepPlotMode_p.h"

#include <qwt_plot.h>

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

void SweepPlotMode::enter()
{
    TimePlotMode::enter();
    m_context.surface.showScrollBar(false);
    // The curves of the strip chart are not a sweep. The last sweep is shown until the next one is complete.
    m_context.curves.detach();
    m_context.gaps.hide();
    m_context.refreshAsked = true;
}

void SweepPlotMode::plot()
{
    const int last = m_context.model.lastRow();
    const bool refresh = std::exchange(m_context.refreshAsked, false);
    m_context.sweep.setLengthHint(m_context.sweepHint());
    if (m_context.triggered.trigger().isOn()) {
        plotTriggered(last, refresh);
        showTrigger();
        return;
    }
    m_context.triggerMarks.hide();
    m_origin = 0;
    m_context.sweep.skipToNewest(last);
    if (!isHeld() && m_context.sweep.isComplete(last)) {
        m_context.sweep.advance();
        m_lost = 0;
        take(m_context.sweep.shown());
        draw();
        if (m_context.sweep.isComplete(last))
            m_context.surface.requestReplot();
    } else if (last < 2 || (refresh && m_context.sweepSamples.size() == 0)) {
        clear(); // the axes say what there is, also before the first sweep
    } else if (refresh) {
        drawAgain(last);
    }
}

//! Returns whether a user looks at the sweep that is shown, which stays until it is let go.
bool SweepPlotMode::isHeld() const
{
    return m_context.hold.isHeld() && m_context.sweepSamples.size() > 0;
}

//! Draws the newest sweep that begins with a trigger, or one without in automatic mode.
void SweepPlotMode::plotTriggered(int lastRow, bool refresh)
{
    if (m_context.triggered.trigger().channel > m_context.model.channelCount()) {
        clear();
        return;
    }
    const auto next =
        m_context.triggered.update(m_context.model.reader(), lastRow, m_context.sweep.length());
    if (next && !isHeld()) {
        m_context.sweep.show(next->rows);
        m_lost = 0;
        m_origin = next->origin - next->rows.first + 1;
        take(next->rows);
        draw();
    } else if (lastRow < 2 || (refresh && m_context.sweepSamples.size() == 0)) {
        clear();
    } else if (refresh) {
        drawAgain(lastRow);
    }
}

//! Copies the rows of the sweep, with their time from the trigger on if there is one.
void SweepPlotMode::take(RowRange rows)
{
    m_context.sweepSamples.take(m_context.model, rows);
    m_context.sweepSamples.setOrigin(m_origin);
    m_context.markers.forgetSpan(); // a sweep may have the times and the ends of the one before
}

//! Says what the trigger does, also while no sweep comes.
void SweepPlotMode::showTrigger()
{
    const SweepTrigger &trigger = m_context.triggered.trigger();
    const bool isRelative = m_context.yScale.mode == RVXScopePlotView::Normalized;
    m_context.triggerMarks.show(trigger,
                                m_context.triggered.state(),
                                m_context.model.brush(trigger.channel).color(),
                                isRelative ? ScopeAxes::noAxis
                                           : m_context.axes.axisOf(trigger.channel));
}

QString SweepPlotMode::xTitle() const
{
    const QString unit = TimePlotMode::xTitle();
    return m_origin > 0 ? RVXScopePlotView::tr("%1 from the trigger").arg(unit) : unit;
}

//! Draws the sweep from the model, or from the copy if samples have left the model.
void SweepPlotMode::drawAgain(int lastRow)
{
    const RowRange shown = m_context.sweep.shown();
    const RowRange left{std::max(shown.first, 1), std::min(shown.last, lastRow)};
    if (left.size() == m_context.sweepSamples.size()) {
        take(left);
    } else if (m_context.sweepChanged || !m_context.sweepSamples.hasUnitOf(m_context.model)) {
        // The copy is outdated, and the model has only a part of the sweep or none of it.
        if (left.size() < 2) {
            clear();
            return;
        }
        m_lost += left.first - shown.first;
        m_origin -= left.first - shown.first; // samples before it have left the model
        take(left);
        m_context.sweep.narrowShown(left);
    }
    draw();
}

void SweepPlotMode::draw()
{
    m_context.sweepChanged = false;
    const int size = m_context.sweepSamples.size();
    const PlotDataReader reader = PlotDataReader::ofBulk(&m_context.sweepSamples);
    followUnits();
    m_context.markers.setGaps(m_context.gaps.showSweep(m_context.curves, reader, size));
    m_context.markers.begin(reader, m_context.sweep.shown());
    m_context.markers.findInSweep(size, m_lost);
    const auto kept = [this](int channel) {
        return m_context.sweepSamples.series(channel);
    };
    setDrawn(reader, {1, size});
    m_context.timeAxis.setFromTrigger(m_origin > 0);
    m_context.curves.setZoomed(m_context.hold.isChanged());
    m_context.curves.plotCurves(kept, 1, m_context.yScale.mode);
    const QwtInterval x = m_context.hold.isHeld()
        ? m_context.hold.window().x
        : QwtInterval(sampleX(reader, 1), sampleX(reader, size));
    finish(x.minValue(), x.maxValue());
}

void SweepPlotMode::clear()
{
    showNoCurves();
    m_context.sweepSamples.clear();
    m_context.markers.clearLabels();
}

//! Returns what the markers read, with the times that the model has, whatever the axis counts from.
ScopeMarkerStatistics SweepPlotMode::markerStatistics() const
{
    ScopeMarkerStatistics statistics = TimePlotMode::markerStatistics();
    statistics.first.time += m_context.sweepSamples.origin();
    statistics.second.time += m_context.sweepSamples.origin();
    return statistics;
}

void SweepPlotMode::moveMarker(int index, int steps)
{
    m_context.markers.moveInSweep(index, steps, m_context.sweepSamples.size());
}

QwtInterval SweepPlotMode::timeExtent() const
{
    const PlotDataReader reader = PlotDataReader::ofBulk(&m_context.sweepSamples);
    const int size = m_context.sweepSamples.size();
    return size < 2 ? QwtInterval() : QwtInterval(sampleX(reader, 1), sampleX(reader, size));
}

} // namespace Corvale_Qt
