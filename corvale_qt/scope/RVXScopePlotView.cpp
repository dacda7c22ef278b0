// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScopePlotView.h"

#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "corvale_qt/scope/Logging_p.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/ScopeSpeech_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Corvale_Qt {

RVXScopePlotView::RVXScopePlotView(QWidget *parent)
    : QAbstractItemView(parent)
    , d_ptr(new RVXScopePlotViewPrivate(this))
{
    qRegisterMetaType<PlotMode>("Corvale_Qt::RVXScopePlotView::PlotMode");
    qRegisterMetaType<PlotScales>("Corvale_Qt::RVXScopePlotView::PlotScales");
    qRegisterMetaType<TimeAxis>("Corvale_Qt::RVXScopePlotView::TimeAxis");
    qRegisterMetaType<HistogramItemTypes>("Corvale_Qt::RVXScopePlotView::HistogramItemTypes");
    setSelectionBehavior(SelectColumns);
    setSelectionMode(SingleSelection);
    setContentsMargins(0, 0, 0, 0);
    horizontalScrollBar()->setRange(0, 0);
    verticalScrollBar()->setRange(0, 0);
    // The axes lie on the viewport, which is white by default in an item view.
    viewport()->setBackgroundRole(backgroundRole());
    viewport()->setForegroundRole(foregroundRole());
    setAccessibleName(tr("Scope plot"));
    describeChart(this, [this] {
        return wordsOf(*this);
    });
    // The chart runs from left to right in every language.
    horizontalScrollBar()->setLayoutDirection(Qt::LeftToRight);
    // The view handles the keys. A canvas with focus would be one more stop of Tab that does nothing.
    for (QwtPlotCanvas *canvas : findChildren<QwtPlotCanvas *>())
        canvas->setFocusPolicy(Qt::NoFocus);
    connect(horizontalScrollBar(), SIGNAL(valueChanged(int)), this, SLOT(scrollTo(int)));
}

RVXScopePlotView::~RVXScopePlotView()
{
    Q_D(RVXScopePlotView);
    d->stopWatching();
    d->removeLegend();
}

void RVXScopePlotView::SetPlotMode(PlotMode mode)
{
    SetPlotMode(int(mode));
}

void RVXScopePlotView::SetPlotMode(int plotMode)
{
    Q_D(RVXScopePlotView);
    if (model())
        d->setMode(plotMode);
}

bool RVXScopePlotView::SetRange(double min, double max)
{
    Q_D(RVXScopePlotView);
    const std::pair<double, double> range(min, max);
    if (!std::isfinite(min) || !std::isfinite(max))
        return false;
    const bool isSame = range == d->context.yScale.range && d->context.isRangeInShownUnit();
    d->context.yScale.isRangeGiven = true;
    d->context.yScale.rangeUnit = d->context.unitOfRange();
    if (isSame)
        return false;
    d->context.yScale.range = range;
    Q_EMIT rangeChanged(min, max);
    return true;
}

std::pair<double, double> RVXScopePlotView::range() const
{
    Q_D(const RVXScopePlotView);
    return d->context.yScale.range;
}

RVXScopePlotView::PlotScales RVXScopePlotView::yScaleMode()
{
    Q_D(RVXScopePlotView);
    return PlotScales(d->context.yScale.mode);
}

void RVXScopePlotView::SetYScaleMode(int scaleMode)
{
    Q_D(RVXScopePlotView);
    const bool isOther = std::exchange(d->context.yScale.mode, scaleMode) != scaleMode;
    d->navigation->releaseY();
    d->context.axes.setYScale(d->context.yScale);
    d->spectrogram->setScale(scaleMode);
    d->positionPlot->setScale(scaleMode);
    d->splitPlot->setScale(scaleMode);
    RequestReplotRefresh();
    if (isOther)
        Q_EMIT yScaleModeChanged(PlotScales(scaleMode));
}

void RVXScopePlotView::SetPositiveOnly(bool positiveOnly)
{
    Q_D(RVXScopePlotView);
    const bool isOther =
        std::exchange(d->context.yScale.positiveOnly, positiveOnly) != positiveOnly;
    SetYScaleMode(d->context.yScale.mode);
    if (isOther)
        Q_EMIT positiveOnlyChanged(positiveOnly);
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
    const bool isOther = std::exchange(d->markersEnabled, enable) != enable;
    if (!enable) {
        d->context.markers.detachAll();
        RequestReplot();
    }
    if (isOther)
        Q_EMIT markersEnabledChanged(enable);
}

void RVXScopePlotView::enableHistogramItem(HistogramItemTypes type,
                                           int count,
                                           const QVector<double> &parameters,
                                           bool fullStatistics)
{
    Q_D(RVXScopePlotView);
    const bool shown = d->mode == HistogramMode;
    d->context.statistics.enable(type, count, parameters, fullStatistics, shown);
    if (shown)
        RequestReplot();
    d->announceLater();
}

QVector<RVX_StatisticsHistogramItem *>
RVXScopePlotView::histogramItems(HistogramItemTypes type) const
{
    Q_D(const RVXScopePlotView);
    return d->context.statistics.items(type);
}

void RVXScopePlotView::toggleMLFC(bool enable)
{
    Q_D(RVXScopePlotView);
    d->context.statistics.toggleMLFC(enable);
    if (d->mode == HistogramMode)
        RequestReplot();
}

void RVXScopePlotView::upload_MLFC_calibration_table(std::vector<double> *table)
{
    Q_D(RVXScopePlotView);
    d->context.statistics.upload_MLFC_calibration_table(table);
    if (d->mode == HistogramMode)
        RequestReplot();
}

void RVXScopePlotView::setPixelated(bool pixelated)
{
    Q_D(RVXScopePlotView);
    d->spectrogram->setPixelated(pixelated);
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
    d->context.curves.clearCurves();
    d->context.markers.detachAll();
    d->context.markers.forgetChannels();
    d->context.model.set(model);
    d->context.channelNames = d->context.model.names();
    d->context.createCurves();
    d->context.dropSweep();
    d->context.batches.clear();
    d->watch(model);
    const bool isOther =
        !model || model != this->model(); // the item view sets null again each time
    // This calls reset(), which expects one curve for each channel.
    QAbstractItemView::setModel(model);
    if (isOther)
        d->takeNewSelection(selectionModel());
    d->followBaseModel();
    d->context.restart();
    if (isOther)
        d->navigation->forget();
    horizontalScrollBar()->setRange(0, 0); // follow the newest sample again
    SetPlotMode(d->mode);
    RequestReplot();
}

void RVXScopePlotView::reset()
{
    Q_D(RVXScopePlotView);
    QAbstractItemView::reset();
    d->followBaseModel();
    d->showBufferSize();
    d->followNames();
    if (!model()) {
        d->context.curves.clearCurves();
        d->currentMode().clear();
        return;
    }
    if (d->context.model.channelCount() != d->context.curves.count()) {
        d->dropSweep();
        d->context.markers.forgetChannelsAfter(d->context.model.channelCount());
        d->context.createCurves();
        d->currentMode().enter();
    }
    d->restart();
    if (d->context.model.lastRow() < 1) {
        d->context.markers.samplesHaveGone();
        d->navigation->forget();
    }
    d->context.markers.forgetRows();
    RequestReplot();
}

void RVXScopePlotView::dataChanged(const QModelIndex &topLeft,
                                   const QModelIndex &bottomRight,
                                   const QVector<int> &roles)
{
    Q_D(RVXScopePlotView);
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    d->cellsChanged(topLeft, bottomRight);
    RequestReplot();
}

void RVXScopePlotView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    Q_D(RVXScopePlotView);
    if (parent.isValid())
        return;
    d->context.rowsInserted(start, end);
    d->announceLimitsLater();
    QAbstractItemView::rowsInserted(parent, start, end);
    RequestReplot();
}

void RVXScopePlotView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    // In single selection the item view selects the next row when the current one is removed. With a full buffer that
    // would happen for each new sample, in every view that shares the selection.
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
    // A removed row loses its selection. ScopeContext::rowsRemoved() removes the marker on it, and the other one stays.
    if (d->rowsLeave)
        return;
    if (selected.isEmpty()) {
        d->context.markers.detachAll();
        RequestReplot();
        return;
    }
    // While plotting, the view itself selects the sample of a marker.
    if (!d->markersEnabled || d->plotting)
        return;
    d->followSelection(selected.first().top(), selected.first().left());
}

void RVXScopePlotView::doItemsLayout()
{
    QAbstractItemView::doItemsLayout();
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
    return &d->context.histogram;
}

QSharedPointer<QwtPlotMarker> RVXScopePlotView::plotMarker(int index)
{
    Q_D(RVXScopePlotView);
    return index >= 0 && index < ScopeMarkers::count ? d->context.markers.item(index)
                                                     : QSharedPointer<QwtPlotMarker>();
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

QModelIndex RVXScopePlotView::indexAt(const QPoint &) const
{
    return QModelIndex();
}

QRect RVXScopePlotView::visualRect(const QModelIndex &) const
{
    return QRect();
}

QSize RVXScopePlotView::minimumSizeHint() const
{
    Q_D(const RVXScopePlotView);
    const QSize base = QAbstractItemView::minimumSizeHint();
    if (!d) // the constructor is still running
        return base;
    const int around = height() - viewport()->height();
    return QSize(base.width(), std::max(base.height(), d->layout->minimumSize().height() + around));
}

void RVXScopePlotView::keyboardSearch(const QString &) { }

bool RVXScopePlotView::isIndexHidden(const QModelIndex &) const
{
    return false;
}

QModelIndex RVXScopePlotView::moveCursor(CursorAction, Qt::KeyboardModifiers)
{
    return QModelIndex();
}

bool RVXScopePlotView::edit(const QModelIndex &, EditTrigger, QEvent *)
{
    return false;
}

QRegion RVXScopePlotView::visualRegionForSelection(const QItemSelection &selection) const
{
    Q_D(const RVXScopePlotView);
    return d->selectionRegion(selection);
}

void RVXScopePlotView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags)
{
    qCDebug(scopeLog) << "RVXScopePlotView::setSelection rect:" << rect;
}

} // namespace Corvale_Qt
