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
    , units(model)
    , axes(thePlot, units)
    , markers(theSurface, thePlot, model, axes)
    , curves(thePlot, model, axes, markers)
    , gaps(thePlot)
    , limits(thePlot, model, axes)
    , statistics(thePlot, model, units)
    , timeAxis(thePlot, model)
    , triggerMarks(thePlot)
{
    model.setTimeAxis(&timeAxis);
}

void ScopeContext::followUnits(ScopeAxes::Show show)
{
    const bool isRelative = yScale.mode == RVXScopePlotView::Normalized;
    const bool isOther = axes.followUnits(show, isRelative);
    if (!units.areApart())
        return;
    if (!yScale.rangeUnit)
        yScale.rangeUnit = unitOfRange();
    if (!isOther)
        return;
    hold.forgetY(); // its numbers were those of other units
    axes.setYScale(yScale);
}

std::optional<QString> ScopeContext::unitOfRange() const
{
    const bool isKnown = units.areApart() && units.hasFirst();
    return isKnown ? std::make_optional(units.symbol(ChannelUnits::First)) : std::nullopt;
}

bool ScopeContext::isRangeInShownUnit() const
{
    return !units.areApart() || !yScale.rangeUnit || yScale.rangeUnit == unitOfRange();
}

void ScopeContext::showYTitles()
{
    const QString number = RVXScopePlotView::tr("Number");
    const bool isRelative = yScale.mode == RVXScopePlotView::Normalized;
    const QString left = axes.values().unit();
    const bool hasUnit = units.areApart() ? !left.isEmpty() : model.plot() && model.plot()->units();
    axes.setYTitle(QwtPlot::yLeft,
                   isRelative    ? RVXScopePlotView::tr("Relative Value")
                       : hasUnit ? left
                                 : number);
    const QString right = axes.values(QwtPlot::yRight).unit();
    if (axes.hasRight())
        axes.setYTitle(QwtPlot::yRight, right.isEmpty() ? number : right);
}

void ScopeContext::noteHidden(const QStringList &notPositive)
{
    const QString comma = QStringLiteral(", ");
    QStringList notes;
    const QStringList withoutAxis = axes.namesWithoutAxis();
    if (!withoutAxis.isEmpty())
        notes << (axes.hasRight()
                      ? RVXScopePlotView::tr("Not drawn: %1 (another unit; two are shown)")
                      : RVXScopePlotView::tr("Not drawn: %1 (another unit; one is shown)"))
                     .arg(withoutAxis.join(comma));
    if (!notPositive.isEmpty())
        notes << RVXScopePlotView::tr("Not on a logarithmic axis, 0 or negative: %1")
                     .arg(notPositive.join(comma));
    note.setText(notes.join(QStringLiteral("; ")));
    if (notes.isEmpty())
        note.detach();
    else if (!note.plot())
        note.attach(plot);
}

void ScopeContext::hideNote()
{
    note.setText(QString());
    note.detach();
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
    const auto show = [this](int axis, const QwtInterval &range) {
        if (range.isValid())
            plot->setAxisScale(axis, range.minValue(), range.maxValue());
    };
    show(QwtPlot::yLeft, hold.window().y);
    show(QwtPlot::yRight, hold.window().right);
}

void ScopeContext::createCurves()
{
    if (model.allChannels() > ScopeModel::maximumChannels) {
        qCDebug(scopeLog,
                "RVXScopePlotView: the first %d of %d channels are shown",
                ScopeModel::maximumChannels,
                model.allChannels());
    }
    units.outdate();
    curves.createCurves(model.channelCount());
    statistics.outdate();
}

void ScopeContext::removeModel()
{
    model.set(nullptr);
    units.outdate();
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
    units.outdate();
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

QVector<int> ScopeContext::followChannels(const ChannelMoves &now)
{
    units.outdate();
    markers.followChannels(now);
    SweepTrigger trigger = triggered.trigger();
    const int channel = now(trigger.channel);
    if (channel == 0)
        trigger.mode = SweepTrigger::Mode::Off; // the channel that is there now is another one
    else
        trigger.channel = channel;
    if (trigger != triggered.trigger())
        triggered.set(trigger);
    if (curves.raised() > 0)
        curves.setRaised(now(curves.raised()));
    return limits.follow(now);
}

void ScopeContext::rowsInserted(int start, int end)
{
    if (!model.plot())
        return;
    const int lastRow = model.lastRow(); // asks all models beneath
    batches.add(end - start + 1);
    if (start <= 1)
        units.outdate(); // a model without rows announces another unit to nobody who looks at cells
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
    if (all || top <= 1)
        units.outdate(); // a change of unit is announced as one of all samples
    if (all || (top <= 1 && bottom > 0 && bottom >= model.lastRow()))
        triggered.valuesChanged();
    // Row 0 says which channels are shown, and in which colours.
    if (all || top == 0 || bottom >= model.lastRow())
        statistics.outdate();
    if (sweepChanged || top == 0 || shown.size() < 1)
        refreshAsked = true;
}

} // namespace Corvale_Qt
