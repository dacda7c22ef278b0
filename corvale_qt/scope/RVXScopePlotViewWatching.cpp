// SPDX-License-Identifier: LGPL-2.1-or-later
// What a scope plot view watches its readings for: gaps, limits and the trigger of sweeps.
#include "corvale_qt/numerics/ChannelLimits.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <QPointer>

namespace Corvale_Qt {

double RVXScopePlotView::gapIntervals() const
{
    Q_D(const RVXScopePlotView);
    return d->context.gaps.intervals();
}

void RVXScopePlotView::setGapIntervals(double intervals)
{
    Q_D(RVXScopePlotView);
    if (!(intervals >= 0.0) || intervals == d->context.gaps.intervals()) // NaN is refused as well
        return;
    d->context.gaps.setIntervals(intervals);
    RequestReplotRefresh();
    Q_EMIT gapIntervalsChanged(intervals);
}

ChannelLimits RVXScopePlotView::channelLimits(int channel) const
{
    Q_D(const RVXScopePlotView);
    return d->context.limits.of(channel);
}

void RVXScopePlotView::setChannelLimits(int channel, const ChannelLimits &limits)
{
    Q_D(RVXScopePlotView);
    if (channel < 1 || channel > ScopeModel::maximumChannels || !limits.isValid()
        || limits == channelLimits(channel))
        return;
    d->context.limits.set(channel, limits);
    d->announceLimitsLater();
    RequestReplotRefresh();
    Q_EMIT channelLimitsChanged(channel);
}

LimitState RVXScopePlotView::limitState(int channel) const
{
    Q_D(const RVXScopePlotView);
    return d->context.limits.state(channel);
}

void RVXScopePlotViewPrivate::cellsChanged(const QModelIndex &topLeft,
                                           const QModelIndex &bottomRight)
{
    context.cellsChanged(topLeft.row(), bottomRight.row());
    if (topLeft.row() <= 0)
        context.channelNames = context.model.names(); // they may have been renamed
    const bool changesX = topLeft.column() <= 0 && bottomRight.row() != 0;
    if (changesX)
        context.gaps.ofModel().restart();
    if (context.limits.isEmpty())
        return; // asking for the last row goes through all proxies
    const int newest = context.model.lastRow();
    if (newest >= 1 && (!bottomRight.isValid() || bottomRight.row() >= newest)) {
        context.limits.judge({newest, newest});
        announceLimitsLater();
    }
}

void RVXScopePlotViewPrivate::restart()
{
    context.restart();
    context.limits.judgeAnew();
    announceLimitsLater();
}

//! Makes the plot of the current mode.
void RVXScopePlotViewPrivate::plotMode()
{
    currentMode().plot();
    announceTriggerLater();
    announceAxesLater();
}

void RVXScopePlotViewPrivate::announceLimitsLater()
{
    if (limitsAnnouncementAsked || !context.limits.hasChanges())
        return;
    limitsAnnouncementAsked = true;
    QMetaObject::invokeMethod(
        q_ptr,
        [this] {
            announceLimits();
        },
        Qt::QueuedConnection);
}

void RVXScopePlotViewPrivate::announceLimits()
{
    limitsAnnouncementAsked = false;
    const QPointer<RVXScopePlotView> view(q_ptr); // a host may delete it when it hears of a change
    for (const ScopeLimits::Change &change : context.limits.takeChanges()) {
        if (view)
            Q_EMIT q_ptr->limitStateChanged(change.channel, change.state);
    }
}

SweepTrigger RVXScopePlotView::trigger() const
{
    Q_D(const RVXScopePlotView);
    return d->context.triggered.trigger();
}

void RVXScopePlotView::setTrigger(const SweepTrigger &trigger)
{
    Q_D(RVXScopePlotView);
    if (!trigger.isValid() || trigger == this->trigger())
        return;
    d->context.triggered.set(trigger);
    if (d->mode == ScopeMode)
        d->navigation->forget(); // x of a held sweep has another zero
    RequestReplotRefresh();
    d->announceTriggerLater();
    Q_EMIT triggerChanged();
}

TriggerState RVXScopePlotView::triggerState() const
{
    Q_D(const RVXScopePlotView);
    return d->context.triggered.state();
}

void RVXScopePlotView::armTrigger()
{
    Q_D(RVXScopePlotView);
    d->context.triggered.arm();
    RequestReplotRefresh();
    d->announceTriggerLater();
}

void RVXScopePlotViewPrivate::announceTriggerLater()
{
    const TriggerState state = context.triggered.state();
    if (state == announcedTrigger)
        return;
    announcedTrigger = state;
    QMetaObject::invokeMethod(
        q_ptr,
        [this, state] {
            Q_EMIT q_ptr->triggerStateChanged(state);
        },
        Qt::QueuedConnection);
}

} // namespace Corvale_Qt
