// SPDX-License-Identifier: LGPL-2.1-or-later
// How a host and a user move in the chart of a scope plot view, and read it.
#include "corvale_qt/numerics/ClampedInt_p.h"
#include "corvale_qt/scope/HoverReading_p.h"
#include "corvale_qt/scope/MarkerReport_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"

#include <qwt_plot.h>

#include <QKeyEvent>
#include <QRectF>
#include <QScrollBar>

#include <cmath>
#include <limits>

namespace Corvale_Qt {

bool RVXScopePlotView::isInteractive() const
{
    Q_D(const RVXScopePlotView);
    return d->navigation->isInteractive();
}

void RVXScopePlotView::setInteractive(bool interactive)
{
    Q_D(RVXScopePlotView);
    if (interactive == isInteractive())
        return;
    d->navigation->setInteractive(interactive);
    Q_EMIT interactiveChanged(interactive);
}

bool RVXScopePlotView::isHeld() const
{
    Q_D(const RVXScopePlotView);
    return d->context.hold.isHeld();
}

void RVXScopePlotView::zoomTo(const QRectF &area)
{
    Q_D(RVXScopePlotView);
    d->navigation->zoomTo(QwtInterval(area.left(), area.right()),
                          QwtInterval(area.top(), area.bottom()));
}

void RVXScopePlotView::zoomToX(double left, double right)
{
    Q_D(RVXScopePlotView);
    d->navigation->zoomTo(QwtInterval(left, right), QwtInterval());
}

void RVXScopePlotView::zoomToY(double bottom, double top)
{
    Q_D(RVXScopePlotView);
    d->navigation->zoomTo(QwtInterval(), QwtInterval(bottom, top));
}

void RVXScopePlotView::goLive()
{
    Q_D(RVXScopePlotView);
    d->navigation->goLive();
}

bool RVXScopePlotView::undoZoom()
{
    Q_D(RVXScopePlotView);
    return d->navigation->undo();
}

RVXScopePlotView::TimeAxis RVXScopePlotView::timeAxis() const
{
    Q_D(const RVXScopePlotView);
    return TimeAxis(d->context.timeAxis.kind());
}

void RVXScopePlotView::setTimeAxis(TimeAxis axis)
{
    Q_D(RVXScopePlotView);
    if (axis == timeAxis() || axis < Seconds || axis > Utc)
        return;
    d->context.timeAxis.setKind(axis);
    RequestReplotRefresh();
    Q_EMIT timeAxisChanged(axis);
}

QDateTime RVXScopePlotView::timeOrigin() const
{
    Q_D(const RVXScopePlotView);
    return d->context.timeAxis.origin();
}

void RVXScopePlotView::setTimeOrigin(const QDateTime &origin)
{
    Q_D(RVXScopePlotView);
    if (origin == timeOrigin())
        return;
    d->context.timeAxis.setOrigin(origin);
    RequestReplotRefresh();
    Q_EMIT timeOriginChanged(origin);
}

double RVXScopePlotView::timeEnd() const
{
    Q_D(const RVXScopePlotView);
    return d->context.timeEnd;
}

void RVXScopePlotView::setTimeEnd(double end)
{
    Q_D(RVXScopePlotView);
    const double wanted = std::isfinite(end) ? end : std::numeric_limits<double>::quiet_NaN();
    const bool bothOpen = std::isnan(wanted) && std::isnan(d->context.timeEnd);
    if (bothOpen || wanted == d->context.timeEnd)
        return;
    d->context.timeEnd = wanted;
    if (d->mode == StripMode && !isHeld())
        RequestReplotRefresh();
    Q_EMIT timeEndChanged(wanted);
}

bool RVXScopePlotView::isCursorEnabled() const
{
    Q_D(const RVXScopePlotView);
    return d->navigation->isCursorEnabled();
}

void RVXScopePlotView::setCursorEnabled(bool enabled)
{
    Q_D(RVXScopePlotView);
    if (enabled == isCursorEnabled())
        return;
    d->navigation->setCursorEnabled(enabled);
    Q_EMIT cursorEnabledChanged(enabled);
}

bool RVXScopePlotView::hasMarkerDetails() const
{
    Q_D(const RVXScopePlotView);
    return d->context.markers.isDetailed();
}

void RVXScopePlotView::setMarkerDetails(bool detailed)
{
    Q_D(RVXScopePlotView);
    if (detailed == hasMarkerDetails())
        return;
    d->context.markers.setDetailed(detailed);
    RequestReplotRefresh();
    Q_EMIT markerDetailsChanged(detailed);
}

QString RVXScopePlotView::markerReport() const
{
    Q_D(const RVXScopePlotView);
    return Corvale_Qt::markerReport(markerStatistics(), d->context.model);
}

void RVXScopePlotView::keyPressEvent(QKeyEvent *event)
{
    Q_D(RVXScopePlotView);
    const int steps = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    if (!d->markerKeyPressed(event->key(), steps)) {
        // The item view does not get the key: it would look for an item whose text begins with it.
        event->setAccepted(d->navigation->keyPressed(*event));
        return;
    }
    event->accept();
    RequestReplotRefresh();
}

void RVXScopePlotView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    Q_D(RVXScopePlotView);
    const bool isSample = index.isValid() && index.model() == model() && index.row() >= 1
        && index.row() <= d->context.model.lastRow();
    if (d->mode != StripMode || !isSample)
        return;
    const double t = model()->data(model()->index(index.row(), 0), Qt::DisplayRole).toDouble();
    const QwtInterval shown = d->plot->axisInterval(QwtPlot::xBottom);
    if (hint == EnsureVisible && t >= shown.minValue() && t <= shown.maxValue())
        return;
    // The value is in units of x, not of the scroll bar, and is that of the centre for every hint. This is kept on
    // purpose: hosts rely on it.
    horizontalScrollBar()->setValue(clampedToInt(shown.width() * 0.5 + t));
}

void RVXScopePlotView::scrollTo(int)
{
    Q_D(RVXScopePlotView);
    if (!d->plotting)
        RequestReplot();
}

void RVXScopePlotView::scrollContentsBy(int, int)
{
    // scrollTo() asks for a plot at the new value; no pixels are moved.
}

int RVXScopePlotView::horizontalOffset() const
{
    Q_D(const RVXScopePlotView);
    return d->mode == StripMode ? horizontalScrollBar()->value() : 0;
}

int RVXScopePlotView::verticalOffset() const
{
    return 0;
}

void RVXScopePlotViewPrivate::requestRefresh()
{
    q_ptr->RequestReplotRefresh();
}

void RVXScopePlotViewPrivate::spanChanged()
{
    context.stripStart.restart();
    navigation->spanChanged();
    q_ptr->RequestReplotRefresh();
}

void RVXScopePlotViewPrivate::select(int marker, const QPointF &position)
{
    if (!markersEnabled)
        return;
    QPointF place = position;
    // A marker stands on the sample that the cursor reads there, which may be the one before the pointer.
    if (navigation->isCursorEnabled())
        place.setX(xOfReadingAt(position.x()));
    context.markers.place(marker, place);
    q_ptr->RequestReplotRefresh();
}

//! Returns the x of what the cursor reads at a place; the place itself if it reads nothing in the picture.
double RVXScopePlotViewPrivate::xOfReadingAt(double x) const
{
    const HoverReading reading = currentMode().readingAt(x);
    const bool isShown = plot->axisInterval(QwtPlot::xBottom).contains(reading.x);
    return reading.place.isEmpty() || !isShown ? x : reading.x;
}

bool RVXScopePlotViewPrivate::markerKeyPressed(int key, int steps)
{
    ScopeMarkers &markers = context.markers;
    const int marker = markers.selected();
    if (!markersEnabled || marker < 0 || !markers.isAttached(marker))
        return false;
    if (key == Qt::Key_Left) {
        currentMode().moveMarker(marker, -steps);
    } else if (key == Qt::Key_Right) {
        currentMode().moveMarker(marker, steps);
    } else if (key == Qt::Key_Delete) {
        markers.detach(marker);
        markers.selectOther();
    } else {
        return false;
    }
    return true;
}

} // namespace Corvale_Qt
