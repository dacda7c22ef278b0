// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/plot/PiecewiseCanvas_p.h"
#include "corvale_qt/scope/CanvasLook_p.h"
#include "corvale_qt/scope/CompanionPlotMode_p.h"
#include "corvale_qt/scope/HistogramPlotMode_p.h"
#include "corvale_qt/scope/LanguageWatch_p.h"
#include "corvale_qt/scope/LeastHeight_p.h"
#include "corvale_qt/scope/ScopeLegend.h"
#include "corvale_qt/scope/StripPlotMode_p.h"
#include "corvale_qt/scope/SweepPlotMode_p.h"

#include <qwt_picker_machine.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

#include <QEvent>
#include <QMetaMethod>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace Corvale_Qt {

namespace {

//! Returns whether anything is connected to a selection model. A view that uses it always is.
bool hasListeners(const QItemSelectionModel &selection)
{
    struct Access : QItemSelectionModel
    {
        static int count(const QItemSelectionModel &selection, const char *signal)
        {
            return (selection.*(&Access::receivers))(signal);
        }
    };
    return Access::count(selection, SIGNAL(selectionChanged(QItemSelection, QItemSelection))) > 0
        || Access::count(selection, SIGNAL(currentChanged(QModelIndex, QModelIndex))) > 0;
}

} // namespace

RVXScopePlotViewPrivate::RVXScopePlotViewPrivate(RVXScopePlotView *view)
    : q_ptr(view)
    , layout(new QVBoxLayout(view->viewport()))
    , plot(new QwtPlot(view->viewport()))
    , canvas(new PiecewiseCanvas(plot))
    , spectrogram(new RVXSpectrogram(view))
    , positionPlot(new RVXPositionPlot(view))
    , splitPlot(new RVXSplitPlot(view))
    , context(plot, *this)
{
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(plot);
    prepareCanvas();
    eventFilter = std::make_unique<RVXScopePlotViewEventFilter>(this);
    canvas->installEventFilter(eventFilter.get());
    plot->installEventFilter(eventFilter.get());
    prepareItems();
    preparePickers();
    context.statistics.insertInto(layout);
    for (QWidget *companion :
         std::initializer_list<QWidget *>{spectrogram, positionPlot, splitPlot})
        layout->insertWidget(0, companion);
    createModes();
    followShownUnit();
    navigation = std::make_unique<ScopeNavigation>(*this);
    new LeastHeight(view);
    QObject::connect(new LanguageWatch(plot), &LanguageWatch::changed, view, [this] {
        context.timeAxis.restart();
        q_ptr->RequestReplotRefresh();
    });
    QObject::connect(&unitsWatch, &UnitsWatch::changed, view, [view] {
        view->RequestReplotRefresh();
    });
    RVXScopePlotViewPrivate::showOnly(plot); // not virtual during construction
}

RVXScopePlotViewPrivate::~RVXScopePlotViewPrivate() = default;

void RVXScopePlotViewPrivate::prepareCanvas()
{
    plot->setCanvas(canvas);
    plot->setAutoDelete(false); // the items belong to this class
    canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, true);
    canvas->setPaintAttribute(QwtPlotCanvas::Opaque, true);
    canvas->setPaintAttribute(QwtPlotCanvas::ImmediatePaint, false);
    canvas->setBorderRadius(0);
    plot->setFrameStyle(QFrame::NoFrame);
    plot->axisWidget(QwtPlot::yLeft)->setMargin(0);
    plot->axisWidget(QwtPlot::yRight)->setMargin(0);
    plot->axisWidget(QwtPlot::xBottom)->setMargin(0);
    plot->axisWidget(QwtPlot::xBottom)->setMinBorderDist(90, 20);
    plot->plotLayout()->setAlignCanvasToScales(true);
    plot->plotLayout()->setSpacing(0);
}

void RVXScopePlotViewPrivate::prepareItems()
{
    grid.enableXMin(false);
    grid.enableYMin(true);
    grid.attach(plot);
    showLook(CanvasLook::onBlack());
    context.histogram.setStyle(QwtPlotHistogram::Columns);
}

void RVXScopePlotViewPrivate::preparePickers()
{
    const auto add = [this](Qt::MouseButton button, const char *slot) {
        auto *picker = new QwtPlotPicker(canvas);
        picker->setStateMachine(new QwtPickerClickPointMachine);
        picker->setTrackerMode(QwtPicker::ActiveOnly);
        picker->setTrackerPen(QPen(Qt::white));
        picker->setMousePattern(QwtEventPattern::MouseSelect1, button);
        QObject::connect(picker, SIGNAL(selected(QPointF)), q_ptr, slot);
    };
    add(Qt::LeftButton, SLOT(SelectPoint1(QPointF)));
    add(Qt::RightButton, SLOT(SelectPoint2(QPointF)));
}

void RVXScopePlotViewPrivate::createModes()
{
    modes = {std::make_unique<StripPlotMode>(context),
             std::make_unique<SweepPlotMode>(context),
             std::make_unique<HistogramPlotMode>(context),
             std::make_unique<CompanionPlotMode>(context, spectrogram),
             std::make_unique<CompanionPlotMode>(context, positionPlot),
             std::make_unique<CompanionPlotMode>(context, splitPlot)};
}

void RVXScopePlotViewPrivate::setMode(int newMode)
{
    if (!isPlotMode(newMode))
        return;
    // The x of a marker has another meaning then.
    if (isTimeMode(mode) != isTimeMode(newMode))
        context.markers.detachAll();
    context.markers.forgetSweep();
    context.markers.forgetRows();
    if (mode != newMode)
        navigation->forget();
    const bool isOther = std::exchange(mode, newMode) != newMode;
    currentMode().enter();
    q_ptr->RequestReplot();
    if (isOther)
        Q_EMIT q_ptr->plotModeChanged(RVXScopePlotView::PlotMode(newMode));
}

void RVXScopePlotViewPrivate::setRange(const std::pair<double, double> &range)
{
    {
        const QSignalBlocker blocker(q_ptr); // a slot may delete the view
        if (!q_ptr->SetRange(range.first, range.second))
            return;
        q_ptr->SetYScaleMode(context.yScale.mode);
    }
    Q_EMIT q_ptr->rangeChanged(range.first, range.second);
}

//! Returns whether anything is connected to a signal of the view.
template<typename Signal>
bool RVXScopePlotViewPrivate::isHeard(Signal signal) const
{
    return q_ptr->isSignalConnected(QMetaMethod::fromSignal(signal));
}

void RVXScopePlotViewPrivate::announceLater()
{
    if (announcementAsked)
        return;
    const bool hasMarkers =
        markersEnabled || announcedMarkers.first.isSet || announcedMarkers.second.isSet;
    // The cheap questions come first: this is asked for each row that comes.
    bool hasNews = context.statistics.hasNews();
    if (hasNews && !isHeard(&RVXScopePlotView::statisticsChanged)) {
        context.statistics.setAnnounced(); // a host that listens later hears of later changes
        hasNews = false;
    }
    if (!hasNews && !(hasMarkers && isHeard(&RVXScopePlotView::markerStatisticsChanged)))
        return;
    announcementAsked = true;
    QMetaObject::invokeMethod(
        q_ptr,
        [this] {
            announce();
        },
        Qt::QueuedConnection);
}

void RVXScopePlotViewPrivate::announce()
{
    announcementAsked = false;
    const QPointer<RVXScopePlotView> view(q_ptr); // a host may delete it when it hears of a change
    if (context.statistics.hasNews())
        announceStatistics();
    if (view && isHeard(&RVXScopePlotView::markerStatisticsChanged))
        announceMarkers();
}

void RVXScopePlotViewPrivate::announceStatistics()
{
    const QPointer<RVXScopePlotView> view(q_ptr);
    context.statistics.setAnnounced();
    const int row = context.model.channelCount() > 0 ? std::max(context.model.lastRow(), 0) : 0;
    const double time = row > 0 ? context.model.plot()->doubleData(row, 0) : std::nan("");
    for (const auto type : {RVXScopePlotView::GaussabolaItem,
                            RVXScopePlotView::CenterOfGravityItem,
                            RVXScopePlotView::RegressionItem,
                            RVXScopePlotView::PrecalculatedFitItem}) {
        if (view && context.statistics.hasItems(type))
            Q_EMIT q_ptr->statisticsChanged(type, row, time);
    }
}

void RVXScopePlotViewPrivate::announceMarkers()
{
    const ScopeMarkerStatistics now = q_ptr->markerStatistics();
    if (now == announcedMarkers)
        return;
    announcedMarkers = now;
    Q_EMIT q_ptr->markerStatisticsChanged();
}

void RVXScopePlotViewPrivate::showOnly(QWidget *shown)
{
    for (QWidget *widget :
         std::initializer_list<QWidget *>{plot, spectrogram, positionPlot, splitPlot}) {
        widget->setVisible(widget == shown);
    }
    showLegend();
}

void RVXScopePlotViewPrivate::showScrollBar(bool shown)
{
    q_ptr->setHorizontalScrollBarPolicy(shown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

QScrollBar *RVXScopePlotViewPrivate::scrollBar() const
{
    return q_ptr->horizontalScrollBar();
}

void RVXScopePlotViewPrivate::requestReplot()
{
    q_ptr->RequestReplot();
}

void RVXScopePlotViewPrivate::selectCell(int row, int column)
{
    QItemSelectionModel *selection = q_ptr->selectionModel();
    const QAbstractItemModel *items = q_ptr->model();
    if (selection && items)
        selection->select(items->index(row, column), QItemSelectionModel::ClearAndSelect);
}

void RVXScopePlotViewPrivate::showBufferSize()
{
    if (!bufferSizeLabel)
        return;
    const bool isEmpty = !baseModel || baseModel->columnCount() < 1;
    const int samples = isEmpty ? 0 : baseModel->rowCount() - 1;
    if (samples == samplesShown)
        return;
    samplesShown = samples;
    bufferSizeLabel->setText(RVXScopePlotView::tr("%1 Samples").arg(samples));
}

void RVXScopePlotViewPrivate::watch(QAbstractItemModel *items)
{
    if (!items)
        return;
    using Model = QAbstractItemModel;
    const auto on = [&](auto signal, auto action) {
        watches.append(QObject::connect(items, signal, q_ptr, action));
    };
    on(&QObject::destroyed, [this] {
        modelIsGone();
    });
    on(&Model::rowsAboutToBeRemoved, [this] {
        rowsLeave = true;
    });
    on(&Model::rowsRemoved, [this](const QModelIndex &parent, int start, int end) {
        rowsLeave = false;
        if (parent.isValid())
            return;
        context.rowsRemoved(start, end);
        requestReplot();
    });
    const auto rowsMove = [this] {
        context.rowsMoved();
        requestReplot();
    };
    on(&Model::rowsMoved, rowsMove);
    on(&Model::layoutChanged, rowsMove);
    // The item view itself ignores channels that are inserted, removed or moved.
    const auto channelsChange = [this](const ChannelMoves &now) {
        dropSweep();
        followChannels(now);
        const QScopedValueRollback<bool> guard(channelsFollowed, true);
        q_ptr->reset();
    };
    on(&Model::columnsInserted, [channelsChange](const QModelIndex &, int first, int last) {
        channelsChange(movesOfInsertion(first, last));
    });
    on(&Model::columnsRemoved, [channelsChange](const QModelIndex &, int first, int last) {
        channelsChange(movesOfRemoval(first, last));
    });
    on(&Model::columnsMoved,
       [channelsChange](const QModelIndex &, int first, int last, const QModelIndex &, int before) {
           channelsChange(movesOfMove(first, last, before));
       });
}

void RVXScopePlotViewPrivate::stopWatching()
{
    for (const QMetaObject::Connection &watch : qAsConst(watches))
        QObject::disconnect(watch);
    watches.clear();
    rowsLeave = false;
}

//! Removes the series of the curves, which read from the model, before the canvas is painted next. The reset that
//! follows clears the rest.
void RVXScopePlotViewPrivate::modelIsGone()
{
    context.removeModel();
    baseModel = nullptr;
    navigation->forget();
    showBufferSize();
    q_ptr->RequestReplot();
}

void RVXScopePlotViewPrivate::followBaseModel()
{
    unitsWatch.follow(q_ptr->model());
    QAbstractItemModel *const base = ScopeModel::innermost(q_ptr->model());
    if (base == baseModel)
        return;
    baseModel = base;
    context.batches.clear();
    context.dropSweep();
    navigation->forget(); // the times of one instrument say nothing about another
}

//! Forgets the sweep that was drawn, and what a user has zoomed to in it.
void RVXScopePlotViewPrivate::dropSweep()
{
    context.dropSweep();
    if (mode == RVXScopePlotView::ScopeMode)
        navigation->forget();
}

void RVXScopePlotViewPrivate::followSelection(int row, int channel)
{
    const bool isSample = isTimeMode(mode) && row >= 1 && row <= context.model.lastRow();
    context.markers.followSelection(isSample ? row : 0, channel);
    if (mode == RVXScopePlotView::HistogramMode)
        context.markers.item(0)->setValue(channel, 0.0);
    q_ptr->RequestReplotRefresh();
    // The plot is made at once: the item view calls scrollTo() next, which does nothing for a sample on the axis.
    if (isSample && currentMode().showSample(context.markers.item(0)->xValue()))
        q_ptr->Plot();
}

/*! Remembers the selection model that the item view has made in setModel(), and deletes the one that it made before
    unless another view uses that. The deletion is deferred: the old one may be emitting the signal that led here. */
void RVXScopePlotViewPrivate::takeNewSelection(QItemSelectionModel *selection)
{
    delete oldSelection;
    if (viewSelection && !hasListeners(*viewSelection)) {
        oldSelection = viewSelection;
        oldSelection->deleteLater();
    }
    viewSelection = selection;
}

//! Colours the frame of the canvas; it lies outside the samples.
void RVXScopePlotViewPrivate::showFocus(bool focused)
{
    QPalette palette; // all other colours are still those of the view
    palette.setBrush(QPalette::Window, canvas->palette().window());
    palette.setColor(QPalette::WindowText, q_ptr->palette().color(QPalette::Highlight));
    canvas->setPalette(palette);
    canvas->setFrameStyle(QFrame::Panel | (focused ? QFrame::Plain : QFrame::Sunken));
    canvas->replot();
}

QRegion RVXScopePlotViewPrivate::selectionRegion(const QItemSelection &selection) const
{
    const QRect whole(canvas->mapTo(q_ptr->viewport(), QPoint(0, 0)), canvas->size());
    const QwtScaleMap map = plot->canvasMap(QwtPlot::xBottom);
    QRegion region;
    for (const QItemSelectionRange &range : selection) {
        if (mode != RVXScopePlotView::HistogramMode) {
            region += whole;
            continue;
        }
        const QwtInterval bars = context.statistics.spanOfBars(range.left(), range.right());
        const int left = int(std::floor(map.transform(bars.minValue())));
        const int right = int(std::ceil(map.transform(bars.maxValue())));
        region += QRect(whole.x() + left, whole.y(), right - left, whole.height());
    }
    return region & whole;
}

} // namespace Corvale_Qt
