// SPDX-License-Identifier: LGPL-2.1-or-later
// When a scope plot view makes its plot: once for each picture, just before it is painted.
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>

#include <utility>

namespace Corvale_Qt {

RVXScopePlotViewEventFilter::RVXScopePlotViewEventFilter(RVXScopePlotViewPrivate *view)
    : d(view)
{
    setObjectName(QStringLiteral("RVXScopePlotViewEventFilter"));
}

bool RVXScopePlotViewEventFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint)
        return false;
    if (watched == d->canvas)
        d->canvasIsPainted();
    else
        d->plotIsPainted();
    return false;
}

void RVXScopePlotViewPrivate::plotIsPainted()
{
    if (!replotPending || mode > RVXScopePlotView::HistogramMode)
        return;
    repaintAsked = false;
    q_ptr->Plot();
    plottedBefore = true;
    // Qwt would give the axes room for their new texts only after this picture.
    QCoreApplication::sendPostedEvents(plot, QEvent::LayoutRequest);
}

void RVXScopePlotViewPrivate::canvasIsPainted()
{
    repaintAsked = false;
    if (std::exchange(plottedBefore, false))
        return;
    replotPending = true;
    q_ptr->Plot();
}

void RVXScopePlotViewPrivate::plotForMarkers()
{
    const bool isSweepOnScreen = mode == RVXScopePlotView::ScopeMode && q_ptr->isVisible();
    const bool hasMarkers = context.markers.isAttached(0) || context.markers.isAttached(1);
    if (!replotPending || plotting || !hasMarkers || isSweepOnScreen || !q_ptr->model()
        || mode > RVXScopePlotView::HistogramMode)
        return;
    replotPending = false;
    const QScopedValueRollback<bool> guard(plotting, true);
    plotMode();
}

void RVXScopePlotView::Plot()
{
    Q_D(RVXScopePlotView);
    if (d->mode <= HistogramMode) {
        if (d->plotting || !model() || !d->replotPending)
            return;
        if (d->mode != ScopeMode && !isVisible())
            return;
        d->replotPending = false;
        if (std::exchange(d->pictureStale, false))
            d->canvas->invalidateBackingStore();
        const QScopedValueRollback<bool> guard(d->plotting, true);
        d->plotMode();
        d->navigation->plotted();
        d->announceLater();
    }
    d->showBufferSize();
}

void RVXScopePlotView::RequestReplot()
{
    Q_D(RVXScopePlotView);
    d->replotPending = true;
    d->pictureStale = true;
    if (!d->plotting)
        d->plottedBefore = false;
    if (!std::exchange(d->repaintAsked, true)) {
        viewport()->update();
        d->canvas->replot();
    }
    d->announceLater();
    if (d->mode > HistogramMode)
        Plot();
}

void RVXScopePlotView::RequestReplotRefresh()
{
    Q_D(RVXScopePlotView);
    d->context.refreshAsked = true;
    RequestReplot();
}

} // namespace Corvale_Qt
