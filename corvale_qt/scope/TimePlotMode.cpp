// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/ScopeSurface_p.h"
#include "corvale_qt/scope/TimePlotMode_p.h"

#include <qwt_plot.h>

namespace Corvale_Qt {

void TimePlotMode::enter()
{
    m_context.histogram.detach();
    m_context.statistics.hide();
    m_context.limits.hide();
    m_context.triggerMarks.hide();
    m_context.surface.showOnly(m_context.plot);
    m_context.axes.prepareTimeAxis();
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

void TimePlotMode::finish(double left, double right)
{
    m_context.axes.setTimeRange(left, right);
    if (m_context.yScale.mode == RVXScopePlotView::Normalized)
        m_context.limits.hide(); // each curve has a scale of its own
    else
        m_context.limits.showOverTime();
    for (int i = 0; i < ScopeMarkers::count; ++i)
        m_context.markers.setStripMarker(i, {left, right});
    setAxisTitles();
    const bool isLogarithmic = m_context.yScale.isLogarithmic;
    m_context.noteHidden(isLogarithmic ? m_context.curves.namesOfNotPositive() : QStringList());
    m_context.plot->updateAxes();
}

void TimePlotMode::setAxisTitles()
{
    m_context.showYTitle();
    m_context.axes.setXTitle(xTitle());
}

QString TimePlotMode::xTitle() const
{
    return m_context.model.xUnitName();
}

} // namespace Corvale_Qt
