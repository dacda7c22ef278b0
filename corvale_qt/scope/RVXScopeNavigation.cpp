// SPDX-License-Identifier: LGPL-2.1-or-later
// What a scope panel passes on to its view: how an operator moves in the chart and reads it.
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScope_p.h"

namespace Corvale_Qt {

void RVXScopePrivate::connectNavigation()
{
    using View = RVXScopePlotView;
    const auto relay = [this](auto ofView, auto ofPanel) {
        QObject::connect(ui.plotView, ofView, q_ptr, ofPanel);
    };
    relay(&View::interactiveChanged, &RVXScope::interactiveChanged);
    relay(&View::heldChanged, &RVXScope::heldChanged);
    relay(&View::timeOriginChanged, &RVXScope::timeOriginChanged);
    relay(&View::cursorEnabledChanged, &RVXScope::cursorEnabledChanged);
    relay(&View::markerDetailsChanged, &RVXScope::markerDetailsChanged);
    relay(&View::timeAxisChanged, [this](View::TimeAxis axis) {
        Q_EMIT q_ptr->timeAxisChanged(RVXScope::TimeAxis(axis));
    });
}

bool RVXScope::isInteractive() const
{
    return plotView()->isInteractive();
}

void RVXScope::setInteractive(bool interactive)
{
    plotView()->setInteractive(interactive);
}

bool RVXScope::isHeld() const
{
    return plotView()->isHeld();
}

RVXScope::TimeAxis RVXScope::timeAxis() const
{
    return TimeAxis(plotView()->timeAxis());
}

void RVXScope::setTimeAxis(TimeAxis axis)
{
    plotView()->setTimeAxis(RVXScopePlotView::TimeAxis(axis));
}

QDateTime RVXScope::timeOrigin() const
{
    return plotView()->timeOrigin();
}

void RVXScope::setTimeOrigin(const QDateTime &origin)
{
    plotView()->setTimeOrigin(origin);
}

bool RVXScope::isCursorEnabled() const
{
    return plotView()->isCursorEnabled();
}

void RVXScope::setCursorEnabled(bool enabled)
{
    plotView()->setCursorEnabled(enabled);
}

bool RVXScope::hasMarkerDetails() const
{
    return plotView()->hasMarkerDetails();
}

void RVXScope::setMarkerDetails(bool detailed)
{
    plotView()->setMarkerDetails(detailed);
}

void RVXScope::goLive()
{
    plotView()->goLive();
}

} // namespace Corvale_Qt
