// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/Logging_p.h"
#include "corvale_qt/scope/ScopeContext_p.h"

#include <qwt_plot.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

bool ScopeSpan::isWhole() const
{
    return std::isinf(time);
}

ScopeContext::ScopeContext(QwtPlot *thePlot, ScopeSurface &theSurface)
    : plot(thePlot)
    , surface(theSurface)
    , axes(thePlot)
    , markers(theSurface, thePlot, model)
    , curves(thePlot, model, markers)
    , gaps(thePlot)
    , limits(thePlot, model)
    , statistics(thePlot, model)
    , timeAxis(thePlot, model)
    , triggerMarks(thePlot)
{
    model.setTimeAxis(&timeAxis);
}

void ScopeContext::showYTitle()
{
    const bool isRelative = yScale.mode == RVXScopePlotView::Normalized;
    axes.values().setGivenUnit(isRelative ? QString() : model.unitName());
    const bool hasUnit = model.plot() && model.plot()->units();
    if (isRelative)
        axes.setYTitle(RVXScopePlotView::tr("Relative Value"));
    else
        axes.setYTitle(hasUnit ? axes.values().unit() : RVXScopePlotView::tr("Number"));
}

void ScopeContext::noteHidden(const QStringList &channels)
{
    note.setText(channels.isEmpty()
                     ? QString()
                     : RVXScopePlotView::tr("Not on a logarithmic axis, 0 or negative: %1")
                           .arg(channels.join(QStringLiteral(", "))));
    if (note.text().isEmpty() == (note.plot() != nullptr))
        note.attach(note.text().isEmpty() ? nullptr : plot);
}

double ScopeContext::stripWidth() const
{
    if (span.time > 0.0 || span.samples > 0 || !model.plot())
        return span.time;
    return model.plot()->PlotWidthHint();
}

int ScopeContext::sweepHint() const
{
    if (span.samples > 0)
        return std::max(span.samples, 2); // one sample has no width
    if (!model.plot())
        return 0;
    return model.plot()->PlotWidthHintPoints();
}

int ScopeContext::stripLength() const
{
    const int hint = sweepHint();
    const int batch = batches.median();
    return hint > 0 ? hint : batch > 0 ? batch : SweepProgress::defaultLength;
}

void ScopeContext::holdYAxis()
{
    const QwtInterval &y = hold.window().y;
    if (y.isValid())
        plot->setAxisScale(QwtPlot::yLeft, y.minValue(), y.maxValue());
}

void ScopeContext::createCurves()
{
    if (model.allChannels() > ScopeModel::maximumChannels) {
        qCDebug(scopeLog,
                "RVXScopePlotView: the first %d of %d channels are shown",
                ScopeModel::maximumChannels,
                model.allChannels());
    }
    curves.createCurves(model.channelCount());
    statistics.outdate();
}

void ScopeContext::removeModel()
{
    model.set(nullptr);
    curves.dropData();
    sweepSamples.clear();
    markers.forgetReadings();
    statistics.outdate();
}

void ScopeContext::dropSweep()
{
    sweepSamples.clear();
    curves.detach();
    markers.forgetReadings();
}

void ScopeContext::restart()
{
    if (model.plot())
        sweep.setLengthHint(sweepHint());
    sweep.restart(model.lastRow());
    stripStart.restart();
    gaps.ofModel().restart();
    triggered.restart();
    hold.forgetRows();
    curves.history().drop(); // it may be that of a source that has gone
    statistics.outdate();
}

void ScopeContext::rowsInserted(int start, int end)
{
    if (!model.plot())
        return;
    const int lastRow = model.lastRow(); // asks all models beneath
    batches.add(end - start + 1);
    const int dropped = sweep.rowsInserted(start, end, lastRow, sweepHint());
    if (dropped > 0) {
        markers.rowsRemoved(1, dropped);
        stripStart.rowsRemoved(1, dropped);
        gaps.ofModel().rowsRemoved(1, dropped);
        triggered.rowsRemoved(1, dropped);
        hold.rowsRemoved(1, dropped);
    }
    if (end < lastRow)
        hold.forgetRows();
    markers.rowsInserted(start, end);
    stripStart.rowsInserted(start);
    gaps.ofModel().rowsInserted(start);
    limits.judge({start, end});
    statistics.outdate();
}

void ScopeContext::rowsRemoved(int start, int end)
{
    sweep.rowsRemoved(start, end);
    markers.rowsRemoved(start, end);
    stripStart.rowsRemoved(start, end);
    gaps.ofModel().rowsRemoved(start, end);
    triggered.rowsRemoved(start, end);
    hold.rowsRemoved(start, end);
    statistics.outdate();
}

void ScopeContext::rowsMoved()
{
    sweep.forgetShown();
    markers.forgetRows();
    stripStart.restart();
    gaps.ofModel().restart();
    hold.forgetRows();
    statistics.outdate();
}

void ScopeContext::cellsChanged(int top, int bottom)
{
    markers.cellsChanged(top, bottom);
    const RowRange shown = sweep.shown();
    const bool all = top < 0 || bottom < 0;
    if (all || (bottom >= std::max(shown.first, 1) && top <= shown.last))
        sweepChanged = true;
    namesChanged = namesChanged || all || top == 0;
    // Row 0 says which channels are shown, and in which colours.
    if (all || top == 0 || bottom >= model.lastRow())
        statistics.outdate();
    if (sweepChanged || top == 0 || shown.size() < 1)
        refreshAsked = true;
}

} // namespace Corvale_Qt
