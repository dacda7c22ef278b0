// SPDX-License-Identifier: LGPL-2.1-or-later
// How a scope plot view shows values: their unit, their digits, and the scale of the y axis that follows them.
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <qwt_plot.h>

#include <cmath>
#include <utility>

namespace Corvale_Qt {

void RVXScopePlotViewPrivate::followShownUnit()
{
    context.axes.values(QwtPlot::yRight).setListener([this] {
        context.showYTitles();
    });
    context.axes.values().setListener([this] {
        context.showYTitles();
        // A slot may delete the view, which may be making a plot right now.
        QMetaObject::invokeMethod(
            q_ptr,
            [this] {
                Q_EMIT q_ptr->shownUnitChanged(q_ptr->shownUnit());
            },
            Qt::QueuedConnection);
    });
}

bool RVXScopePlotView::hasSiPrefix() const
{
    Q_D(const RVXScopePlotView);
    return d->context.axes.values().hasSiPrefix();
}

void RVXScopePlotView::setSiPrefix(bool on)
{
    Q_D(RVXScopePlotView);
    if (on == hasSiPrefix())
        return;
    for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight})
        d->context.axes.values(axis).setSiPrefix(on);
    d->context.model.setSiPrefix(on);
    d->spectrogram->setSiPrefix(on);
    d->context.statistics.outdate();
    RequestReplotRefresh();
    Q_EMIT siPrefixChanged(on);
}

QString RVXScopePlotView::valueUnit() const
{
    Q_D(const RVXScopePlotView);
    return d->context.axes.values().fixedUnit();
}

void RVXScopePlotView::setValueUnit(const QString &symbol)
{
    Q_D(RVXScopePlotView);
    if (symbol == valueUnit())
        return;
    for (const int axis : {QwtPlot::yLeft, QwtPlot::yRight})
        d->context.axes.values(axis).setFixedUnit(symbol);
    d->context.model.setFixedUnit(symbol);
    d->spectrogram->setValueUnit(symbol);
    d->context.statistics.outdate();
    RequestReplotRefresh();
    Q_EMIT valueUnitChanged(symbol);
}

QStringList RVXScopePlotView::valueUnits() const
{
    Q_D(const RVXScopePlotView);
    return Units::SiPrefix(d->context.units.symbol(ChannelUnits::First)).symbols();
}

QString RVXScopePlotView::shownUnit() const
{
    Q_D(const RVXScopePlotView);
    return d->context.axes.values().unit();
}

QString RVXScopePlotView::toShownValue(double value) const
{
    Q_D(const RVXScopePlotView);
    return d->context.axes.values().shownText(value);
}

double RVXScopePlotView::fromShownValue(const QString &text) const
{
    Q_D(const RVXScopePlotView);
    return d->context.axes.values().typedValue(text, d->context.units.symbol(ChannelUnits::First));
}

QString RVXScopePlotView::rightUnit() const
{
    Q_D(const RVXScopePlotView);
    const ScopeAxes &axes = d->context.axes;
    return axes.hasRight() ? axes.values(QwtPlot::yRight).unit() : QString();
}

QStringList RVXScopePlotView::rightUnits() const
{
    Q_D(const RVXScopePlotView);
    const ScopeAxes &axes = d->context.axes;
    return axes.hasRight() ? Units::SiPrefix(axes.values(QwtPlot::yRight).givenUnit()).symbols()
                           : QStringList();
}

ValueRange RVXScopePlotView::rightRange() const
{
    Q_D(const RVXScopePlotView);
    const std::optional<ValueRange> &given = d->context.yScale.otherRange;
    const QString unit = d->context.axes.values(QwtPlot::yRight).givenUnit();
    if (given && given->unit == unit)
        return *given;
    const QwtInterval shown = d->plot->axisInterval(QwtPlot::yRight);
    return {shown.minValue(), shown.maxValue(), unit};
}

std::optional<ValueRange> RVXScopePlotView::givenRightRange() const
{
    Q_D(const RVXScopePlotView);
    return d->context.yScale.otherRange;
}

std::pair<double, double> RVXScopePlotView::leftRange() const
{
    Q_D(const RVXScopePlotView);
    if (d->context.yScale.isRangeGiven && d->context.isRangeInShownUnit())
        return range();
    const QwtInterval shown = d->plot->axisInterval(QwtPlot::yLeft);
    return {shown.minValue(), shown.maxValue()};
}

std::optional<QString> RVXScopePlotView::rangeUnit() const
{
    Q_D(const RVXScopePlotView);
    const YScale &scale = d->context.yScale;
    return scale.isRangeGiven && hasSecondAxis() ? scale.rangeUnit : std::nullopt;
}

void RVXScopePlotView::setRangeUnit(const QString &symbol)
{
    Q_D(RVXScopePlotView);
    if (d->context.yScale.rangeUnit == symbol)
        return;
    d->context.yScale.rangeUnit = symbol;
    d->context.axes.setYScale(d->context.yScale);
    RequestReplotRefresh();
}

void RVXScopePlotView::setRightRange(const ValueRange &range)
{
    Q_D(RVXScopePlotView);
    if (std::isfinite(range.minimum) && std::isfinite(range.maximum))
        d->setOtherRange(range);
}

void RVXScopePlotView::resetRightRange()
{
    Q_D(RVXScopePlotView);
    d->setOtherRange({});
}

void RVXScopePlotViewPrivate::setOtherRange(const std::optional<ValueRange> &range)
{
    const bool isOther = std::exchange(context.yScale.otherRange, range) != range;
    context.axes.setYScale(context.yScale);
    q_ptr->RequestReplotRefresh();
    if (isOther)
        Q_EMIT q_ptr->rightRangeChanged();
}

QString RVXScopePlotView::toRightValue(double value) const
{
    Q_D(const RVXScopePlotView);
    return d->context.axes.values(QwtPlot::yRight).shownText(value);
}

double RVXScopePlotView::fromRightValue(const QString &text) const
{
    Q_D(const RVXScopePlotView);
    const ValueAxis &axis = d->context.axes.values(QwtPlot::yRight);
    return axis.typedValue(text, axis.givenUnit());
}

void RVXScopePlotViewPrivate::announceAxesLater()
{
    const int axes = context.axes.version();
    if (std::exchange(announcedAxes, axes) == axes)
        return;
    QMetaObject::invokeMethod(
        q_ptr,
        [this] {
            Q_EMIT q_ptr->channelAxesChanged();
        },
        Qt::QueuedConnection);
}

bool RVXScopePlotView::hasSecondAxis() const
{
    Q_D(const RVXScopePlotView);
    return d->context.units.areApart();
}

void RVXScopePlotView::setSecondAxis(bool on)
{
    Q_D(RVXScopePlotView);
    if (on == hasSecondAxis())
        return;
    d->context.units.setApart(on);
    d->context.statistics.outdate();
    d->navigation->releaseY();
    d->context.axes.setYScale(d->context.yScale);
    RequestReplotRefresh();
    Q_EMIT secondAxisChanged(on);
}

RVXScopePlotView::ChannelAxis RVXScopePlotView::channelAxis(int channel) const
{
    Q_D(const RVXScopePlotView);
    if (channel < 1 || channel > d->context.model.channelCount())
        return NoAxis;
    const int axis = d->context.axes.axisOf(channel);
    return axis == ScopeAxes::noAxis ? NoAxis : axis == QwtPlot::yLeft ? LeftAxis : RightAxis;
}

bool RVXScopePlotView::hasHysteresis() const
{
    Q_D(const RVXScopePlotView);
    return d->context.yScale.isSteady;
}

void RVXScopePlotView::setHysteresis(bool on)
{
    Q_D(RVXScopePlotView);
    if (on == hasHysteresis())
        return;
    d->context.yScale.isSteady = on;
    d->context.axes.setYScale(d->context.yScale);
    RequestReplotRefresh();
    Q_EMIT hysteresisChanged(on);
}

bool RVXScopePlotView::isFullScaleFromData() const
{
    Q_D(const RVXScopePlotView);
    return d->context.yScale.followsFullScale;
}

void RVXScopePlotView::setFullScaleFromData(bool on)
{
    Q_D(RVXScopePlotView);
    if (on == isFullScaleFromData())
        return;
    d->context.yScale.followsFullScale = on;
    d->context.axes.setYScale(d->context.yScale);
    RequestReplotRefresh();
    Q_EMIT fullScaleFromDataChanged(on);
}

bool RVXScopePlotView::isLogarithmic() const
{
    Q_D(const RVXScopePlotView);
    return d->context.yScale.isLogarithmic;
}

void RVXScopePlotView::setLogarithmic(bool on)
{
    Q_D(RVXScopePlotView);
    if (on == isLogarithmic())
        return;
    d->context.yScale.isLogarithmic = on;
    d->navigation->releaseY(); // a range that reaches below 0 has no place on a logarithmic axis
    d->context.axes.setYScale(d->context.yScale);
    RequestReplotRefresh();
    Q_EMIT logarithmicChanged(on);
}

void RVXScopePlotView::resetRange()
{
    Q_D(RVXScopePlotView);
    const std::pair<double, double> fresh = YScale().range;
    const bool isOther = d->context.yScale.range != fresh;
    d->context.yScale.range = fresh;
    d->context.yScale.isRangeGiven = false;
    d->context.yScale.rangeUnit.reset();
    d->context.axes.setYScale(d->context.yScale);
    RequestReplotRefresh();
    if (isOther)
        Q_EMIT rangeChanged(fresh.first, fresh.second);
}

} // namespace Corvale_Qt
