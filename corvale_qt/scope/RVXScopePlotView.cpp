// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScopePlotView.h"

#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Corvale_Qt {

const double RVXScopePlotView::SCROLLBAR_FACTOR = kScrollUnits;

RVXScopePlotView::RVXScopePlotView(QWidget *parent)
    : QAbstractItemView(parent)
    , d_ptr(new RVXScopePlotViewPrivate(this))
{
    setSelectionBehavior(SelectColumns);
    setSelectionMode(SingleSelection);
    setContentsMargins(0, 0, 0, 0);
    horizontalScrollBar()->setRange(0, 0);
    verticalScrollBar()->setRange(0, 0);
    // The viewport of an item view is white otherwise, and the axes stand on it.
    viewport()->setBackgroundRole(backgroundRole());
    viewport()->setForegroundRole(foregroundRole());
    setAccessibleName(tr("Scope plot"));
    // The chart runs from left to right in every language.
    horizontalScrollBar()->setLayoutDirection(Qt::LeftToRight);
    // The keys are the view's; a canvas would be one more stop of Tab, and a silent one.
    for (QwtPlotCanvas *canvas : findChildren<QwtPlotCanvas *>())
        canvas->setFocusPolicy(Qt::NoFocus);
    connect(horizontalScrollBar(), SIGNAL(valueChanged(int)), this, SLOT(scrollTo(int)));
}

RVXScopePlotView::~RVXScopePlotView()
{
    Q_D(RVXScopePlotView);
    d->stopWatching();
}

void RVXScopePlotView::SetPlotMode(PlotMode mode)
{
    SetPlotMode(int(mode));
}

void RVXScopePlotView::SetPlotMode(int plotMode)
{
    Q_D(RVXScopePlotView);
    if (plotMode < StripMode || plotMode > SplitMode || !model())
        return;
    // A marker's x means another thing then.
    if (d->isTimeMode(d->mode) != d->isTimeMode(plotMode))
        d->markers.detachAll();
    d->markers.forgetSweep();
    d->markers.forgetRows();
    d->mode = plotMode;
    d->currentMode().enter();
    RequestReplot();
}

bool RVXScopePlotView::SetRange(double min, double max)
{
    Q_D(RVXScopePlotView);
    const std::pair<double, double> range(min, max);
    if (range == d->yScale.range || !std::isfinite(min) || !std::isfinite(max))
        return false;
    d->yScale.range = range;
    return true;
}

std::pair<double, double> RVXScopePlotView::range() const
{
    Q_D(const RVXScopePlotView);
    return d->yScale.range;
}

RVXScopePlotView::PlotScales RVXScopePlotView::yScaleMode()
{
    Q_D(RVXScopePlotView);
    return PlotScales(d->yScale.mode);
}

void RVXScopePlotView::SetYScaleMode(int scaleMode)
{
    Q_D(RVXScopePlotView);
    d->yScale.mode = scaleMode;
    d->axes.setYScale(d->yScale);
    d->spectrogram->setScale(scaleMode);
    d->positionPlot->setScale(scaleMode);
    d->splitPlot->setScale(scaleMode);
    RequestReplotRefresh();
}

void RVXScopePlotView::SetPositiveOnly(bool positiveOnly)
{
    Q_D(RVXScopePlotView);
    d->yScale.positiveOnly = positiveOnly;
    SetYScaleMode(d->yScale.mode);
}

void RVXScopePlotView::SetBufferSizeLabel(QLabel *label)
{
    Q_D(RVXScopePlotView);
    d->bufferSizeLabel = label;
    d->samplesShown = -1;
    d->showBufferSize();
}

void RVXScopePlotView::enablePlotMarker(bool enable)
{
    Q_D(RVXScopePlotView);
    d->markersEnabled = enable;
    if (enable)
        return;
    d->markers.detachAll();
    RequestReplot();
}

void RVXScopePlotView::enableHistogramItem(HistogramItemTypes type,
                                           int count,
                                           const QVector<double> &parameters,
                                           bool fullStatistics)
{
    Q_D(RVXScopePlotView);
    const bool shown = d->mode == HistogramMode;
    d->statistics.enable(type, count, parameters, fullStatistics, shown);
    if (shown)
        RequestReplot();
}

QVector<RVX_StatisticsHistogramItem *>
RVXScopePlotView::histogramItems(HistogramItemTypes type) const
{
    Q_D(const RVXScopePlotView);
    return d->statistics.items(type);
}

void RVXScopePlotView::toggleMLFC(bool enable)
{
    Q_D(RVXScopePlotView);
    d->statistics.toggleMLFC(enable);
    if (d->mode == HistogramMode)
        RequestReplot();
}

void RVXScopePlotView::upload_MLFC_calibration_table(std::vector<double> *table)
{
    Q_D(RVXScopePlotView);
    d->statistics.upload_MLFC_calibration_table(table);
    if (d->mode == HistogramMode)
        RequestReplot();
}

void RVXScopePlotView::setPixelated(bool pixelated)
{
    Q_D(RVXScopePlotView);
    d->spectrogram->setPixelated(pixelated);
    d->pixelated = pixelated;
}

RVXPositionPlot *RVXScopePlotView::positionPlot()
{
    Q_D(RVXScopePlotView);
    return d->positionPlot;
}

RVXSpectrogram *RVXScopePlotView::spectrogram()
{
    Q_D(RVXScopePlotView);
    return d->spectrogram;
}

RVXSplitPlot *RVXScopePlotView::splitPlot()
{
    Q_D(RVXScopePlotView);
    return d->splitPlot;
}

void RVXScopePlotView::setModel(QAbstractItemModel *model)
{
    Q_D(RVXScopePlotView);
    d->stopWatching();
    d->curves.clearCurves();
    d->markers.detachAll();
    d->markers.forgetChannels();
    d->model.set(model);
    d->createCurves();
    d->dropSweep();
    d->batches.clear();
    d->watch(model);
    const bool isOther = !model || model != this->model(); // null is set again each time
    // Calls reset(), which finds as many curves as there are channels.
    QAbstractItemView::setModel(model);
    if (isOther)
        d->takeNewSelection(selectionModel());
    d->followBaseModel();
    d->restartSweeps();
    horizontalScrollBar()->setRange(0, 0); // follows the newest sample again
    SetPlotMode(d->mode);
    RequestReplot();
}

void RVXScopePlotView::reset()
{
    Q_D(RVXScopePlotView);
    QAbstractItemView::reset();
    d->followBaseModel();
    d->showBufferSize();
    if (!model()) {
        d->curves.clearCurves();
        d->currentMode().clear();
        return;
    }
    if (d->model.channelCount() != d->curves.count()) {
        d->dropSweep();
        d->markers.forgetChannels();
        d->createCurves();
        d->currentMode().enter();
    }
    d->restartSweeps();
    if (d->model.lastRow() < 1)
        d->markers.samplesHaveGone();
    d->markers.forgetRows();
    RequestReplot();
}

void RVXScopePlotView::dataChanged(const QModelIndex &topLeft,
                                   const QModelIndex &bottomRight,
                                   const QVector<int> &roles)
{
    Q_D(RVXScopePlotView);
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    d->cellsHaveChanged(topLeft.row(), bottomRight.row());
    RequestReplot();
}

void RVXScopePlotView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    Q_D(RVXScopePlotView);
    if (parent.isValid())
        return;
    d->rowsHaveCome(start, end);
    QAbstractItemView::rowsInserted(parent, start, end);
    RequestReplot();
}

void RVXScopePlotView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    // In single selection the item view selects the next row when the current one is removed. In a full buffer it would
    // do so with each new sample, for every view that shares the selection.
    const SelectionMode mode = selectionMode();
    setSelectionMode(NoSelection);
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
    setSelectionMode(mode);
}

void RVXScopePlotView::selectionChanged(const QItemSelection &selected,
                                        const QItemSelection &deselected)
{
    Q_D(RVXScopePlotView);
    QAbstractItemView::selectionChanged(selected, deselected);
    // A removed row takes its selection along. Its marker is taken away in rowsHaveGone(), the other one stays.
    if (d->rowsLeave)
        return;
    if (selected.isEmpty()) {
        d->markers.detachAll();
        RequestReplot();
        return;
    }
    // The plot itself selects the sample of a marker.
    if (!d->markersEnabled || d->plotting)
        return;
    d->followSelection(selected.first().top(), selected.first().left());
}

void RVXScopePlotView::doItemsLayout()
{
    QAbstractItemView::doItemsLayout();
    RequestReplot();
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
        if (d->mode == StripMode)
            PlotStripMode();
        else if (d->mode == ScopeMode)
            PlotScopeMode();
        else
            PlotHistogramMode();
    }
    d->showBufferSize();
}

void RVXScopePlotView::PlotStripMode()
{
    Q_D(RVXScopePlotView);
    d->modes[StripMode]->plot();
}

void RVXScopePlotView::PlotScopeMode()
{
    Q_D(RVXScopePlotView);
    d->modes[ScopeMode]->plot();
}

void RVXScopePlotView::PlotHistogramMode()
{
    Q_D(RVXScopePlotView);
    d->modes[HistogramMode]->plot();
}

void RVXScopePlotView::RequestReplot()
{
    Q_D(RVXScopePlotView);
    d->replotPending = true;
    d->pictureStale = true;
    if (!std::exchange(d->repaintAsked, true)) {
        viewport()->update();
        d->canvas->replot();
    }
    if (d->mode > HistogramMode)
        Plot();
}

void RVXScopePlotView::RequestReplotRefresh()
{
    Q_D(RVXScopePlotView);
    d->refreshAsked = true;
    RequestReplot();
}

void RVXScopePlotView::SelectPoint1(QPointF pos)
{
    Q_D(RVXScopePlotView);
    d->select(0, pos);
}

void RVXScopePlotView::SelectPoint2(QPointF pos)
{
    Q_D(RVXScopePlotView);
    d->select(1, pos);
}

QwtPlot *RVXScopePlotView::qwtPlot()
{
    Q_D(RVXScopePlotView);
    return d->plot;
}

QwtPlotGrid *RVXScopePlotView::grid()
{
    Q_D(RVXScopePlotView);
    return &d->grid;
}

QwtPlotHistogram *RVXScopePlotView::histogram()
{
    Q_D(RVXScopePlotView);
    return &d->histogram;
}

QSharedPointer<QwtPlotMarker> RVXScopePlotView::plotMarker(int index)
{
    Q_D(RVXScopePlotView);
    return index >= 0 && index < ScopeMarkers::count ? d->markers.item(index)
                                                     : QSharedPointer<QwtPlotMarker>();
}

void RVXScopePlotView::keyPressEvent(QKeyEvent *event)
{
    Q_D(RVXScopePlotView);
    const int marker = d->markers.selected();
    const bool hasMarker = d->markersEnabled && d->markers.isAttached(marker);
    const int steps = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    if (hasMarker && event->key() == Qt::Key_Left) {
        d->currentMode().moveMarker(marker, -steps);
    } else if (hasMarker && event->key() == Qt::Key_Right) {
        d->currentMode().moveMarker(marker, steps);
    } else if (hasMarker && event->key() == Qt::Key_Delete) {
        d->markers.detach(marker);
        d->markers.selectOther();
    } else {
        event->ignore(); // an item view would look for an item whose text begins with the key
        return;
    }
    event->accept();
    RequestReplotRefresh();
}

void RVXScopePlotView::focusInEvent(QFocusEvent *event)
{
    Q_D(RVXScopePlotView);
    QAbstractItemView::focusInEvent(event);
    d->showFocus(true);
}

void RVXScopePlotView::focusOutEvent(QFocusEvent *event)
{
    Q_D(RVXScopePlotView);
    QAbstractItemView::focusOutEvent(event);
    d->showFocus(false);
}

} // namespace Corvale_Qt
