// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/models/RVXPlotHistory.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeSurface_p.h"
#include "corvale_qt/scope/StripPlotMode_p.h"

#include <qwt_plot.h>

#include <QScrollBar>

#include <cmath>

namespace Corvale_Qt {

void StripPlotMode::enter()
{
    TimePlotMode::enter();
    m_context.surface.showScrollBar(true);
}

void StripPlotMode::plot()
{
    StripRequest request = currentRequest();
    if (request.samples < 2) {
        clear();
        return;
    }
    const PlotColumnReader reader = m_context.model.reader();
    m_context.stripStart.update(reader, request);
    request.first = m_context.stripStart.row();
    const RVXPlotHistory *const blocks = history(reader, request.first);
    if (blocks)
        request.remembered = blocks->oldest();
    const StripWindow window = stripWindow(reader, request);

    m_context.markers.setGaps(
        m_context.gaps.showStrip(m_context.curves, reader, window.rows, request.samples));
    m_context.markers.begin(reader, {1, request.samples});
    if (blocks)
        m_context.markers.findInStrip(window.firstRow);
    else
        m_context.markers.findInStrip();
    const bool reachesBack = window.left < window.firstRow;
    m_context.curves.history().setWindow(reachesBack ? blocks : nullptr, window.left, window.right);
    const auto ofModel = [model = m_context.model.plot(), rows = window.rows](int channel) {
        return model->seriesData(channel, rows.first, rows.last);
    };
    m_context.curves.plotCurves(ofModel, window.rows.first, m_context.yScale.mode);
    if (window.left > window.oldest || !request.following)
        m_context.surface.showScrollBar(true);
    finish(window.left, window.right);
    setScrollBar(stripScrollBar(window, request));
}

//! Returns the blocks before row \a first, with which the chart begins; null if there are none.
const RVXPlotHistory *StripPlotMode::history(const PlotColumnReader &reader, int first) const
{
    const bool beginsWithRows = first == 1 && reader.xRises();
    const RVXPlotHistory *const found =
        beginsWithRows ? RVXPlotHistory::of(m_context.model.plot()) : nullptr;
    return found && !std::isnan(found->oldest()) ? found : nullptr;
}

//! Returns what the window depends on, except its first row. Without samples only their number is set.
StripRequest StripPlotMode::currentRequest() const
{
    StripRequest request;
    request.samples = m_context.model.lastRow();
    if (request.samples < 1)
        return request;
    const QScrollBar *bar = m_context.surface.scrollBar();
    request.sweepLength = m_context.stripLength();
    request.width = m_context.stripWidth();
    request.whole = m_context.span.isWhole();
    request.beginsAtFirst = m_context.beginsAtFirst;
    request.following = request.whole || bar->value() == bar->maximum();
    request.scrollValue = bar->value();
    request.scrollUnits = m_scrollUnits;
    return request;
}

void StripPlotMode::setScrollBar(const StripScrollBar &scrolling)
{
    QScrollBar *bar = m_context.surface.scrollBar();
    m_scrollUnits = scrolling.units;
    bar->setRange(0, scrolling.maximum);
    bar->setPageStep(scrolling.pageStep);
    bar->setSingleStep(scrolling.singleStep);
    bar->setValue(scrolling.value);
}

void StripPlotMode::clear()
{
    m_context.curves.detach();
    m_context.gaps.hide();
    m_context.markers.detachAll();
    setAxisTitles();
    m_context.surface.showScrollBar(false);
    m_context.surface.scrollBar()->setRange(0, 0); // the chart follows the next samples
    m_context.plot->updateAxes();
}

void StripPlotMode::moveMarker(int index, int steps)
{
    m_context.markers.moveInStrip(index, steps);
}

bool StripPlotMode::showSample(double x)
{
    const QwtInterval shown = m_context.plot->axisInterval(QwtPlot::xBottom);
    if (shown.contains(x))
        return false;
    const PlotColumnReader reader = m_context.model.reader();
    const int first = m_context.stripStart.row();
    const RVXPlotHistory *const blocks = history(reader, first);
    const double oldest = blocks ? blocks->oldest() : sampleX(reader, first);
    const double left = x - 0.5 * shown.width();
    m_context.surface.scrollBar()->setValue(toScrollUnits((left - oldest) * m_scrollUnits));
    return true;
}

} // namespace Corvale_Qt
