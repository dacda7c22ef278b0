// SPDX-License-Identifier: LGPL-2.1-or-later
// When a scope plot view makes its plot: once for each picture, just before it is painted.
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_widget.h>

#include <QCoreApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QRegion>
#include <QScopedValueRollback>

#include <array>
#include <utility>

namespace Corvale_Qt {

namespace {

/*! While it exists, the axes within a region ask for no paint. That region is being painted, with what they are set to now; a
    request would have them painted a second time. */
class QuietAxes
{
public:
    QuietAxes(QwtPlot &plot, const QRegion &painted)
    {
        for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
            QWidget *const widget = plot.axisWidget(axis);
            const bool isPainted = QRegion(widget->geometry()).subtracted(painted).isEmpty();
            if (isPainted && !widget->testAttribute(Qt::WA_UpdatesDisabled))
                m_axes[size_t(axis)] = widget;
        }
        setQuiet(true);
    }
    ~QuietAxes() { setQuiet(false); }
    Q_DISABLE_COPY(QuietAxes)

private:
    //! QWidget::setUpdatesEnabled() would ask for a paint in the end.
    void setQuiet(bool quiet)
    {
        for (QWidget *axis : m_axes) {
            if (axis)
                axis->setAttribute(Qt::WA_UpdatesDisabled, quiet);
        }
    }

    std::array<QWidget *, QwtPlot::axisCnt> m_axes{};
};

} // namespace

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
        d->plotIsPainted(static_cast<QPaintEvent *>(event)->region());
    return false;
}

void RVXScopePlotViewPrivate::plotIsPainted(const QRegion &painted)
{
    if (!replotPending || mode > RVXScopePlotView::HistogramMode)
        return;
    repaintAsked = false;
    {
        const QuietAxes quiet(*plot, painted);
        q_ptr->Plot();
    }
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
