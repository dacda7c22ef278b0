// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/RVXSplitPlot.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"

#include <qwt_picker_machine.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_widget.h>

#include <QEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

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

RVXScopePlotViewEventFilter::RVXScopePlotViewEventFilter(RVXScopePlotViewPrivate *view)
    : d(view)
{
    setObjectName(QStringLiteral("RVXScopePlotViewEventFilter"));
}

bool RVXScopePlotViewEventFilter::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Paint)
        d->canvasIsPainted();
    return false;
}

RVXScopePlotViewPrivate::RVXScopePlotViewPrivate(RVXScopePlotView *view)
    : q_ptr(view)
    , layout(new QVBoxLayout(view->viewport()))
    , plot(new QwtPlot(view->viewport()))
    , canvas(new QwtPlotCanvas(plot))
    , statistics(plot)
    , spectrogram(new RVXSpectrogram(view))
    , positionPlot(new RVXPositionPlot(view))
    , splitPlot(new RVXSplitPlot(view))
    , axes(plot)
    , markers(view, plot, model)
    , curves(plot, model, markers)
{
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(plot);
    prepareCanvas();
    eventFilter = std::make_unique<RVXScopePlotViewEventFilter>(this);
    canvas->installEventFilter(eventFilter.get());
    prepareItems();
    preparePickers();
    statistics.insertInto(layout);
    for (QWidget *companion :
         std::initializer_list<QWidget *>{spectrogram, positionPlot, splitPlot})
        layout->insertWidget(0, companion);
    createModes();
    showOnly(plot);
}

RVXScopePlotViewPrivate::~RVXScopePlotViewPrivate() = default;

void RVXScopePlotViewPrivate::prepareCanvas()
{
    plot->setCanvas(canvas);
    plot->setAutoDelete(false); // the items are ours
    plot->setCanvasBackground(Qt::black);
    canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, true);
    canvas->setPaintAttribute(QwtPlotCanvas::Opaque, true);
    canvas->setPaintAttribute(QwtPlotCanvas::ImmediatePaint, false);
    canvas->setBorderRadius(0);
    plot->setFrameStyle(QFrame::NoFrame);
    plot->axisWidget(QwtPlot::yLeft)->setMargin(0);
    plot->axisWidget(QwtPlot::xBottom)->setMargin(0);
    plot->axisWidget(QwtPlot::xBottom)->setMinBorderDist(90, 20);
    plot->plotLayout()->setAlignCanvasToScales(true);
    plot->plotLayout()->setSpacing(0);
}

void RVXScopePlotViewPrivate::prepareItems()
{
    const auto pen = [](int grey) {
        return QPen(QColor(grey, grey, grey), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    };
    grid.enableXMin(false);
    grid.enableYMin(true);
    grid.setMajorPen(pen(88));
    grid.setMinorPen(pen(48));
    grid.attach(plot);

    histogram.setBrush(QBrush(Qt::yellow));
    histogram.setPen(QColor(Qt::yellow).darker(130));
    histogram.setStyle(QwtPlotHistogram::Columns);
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
    modes = {std::make_unique<StripPlotMode>(*this),
             std::make_unique<SweepPlotMode>(*this),
             std::make_unique<HistogramPlotMode>(*this),
             std::make_unique<CompanionPlotMode>(*this, spectrogram),
             std::make_unique<CompanionPlotMode>(*this, positionPlot),
             std::make_unique<CompanionPlotMode>(*this, splitPlot)};
}

void RVXScopePlotViewPrivate::showOnly(QWidget *shown)
{
    for (QWidget *widget :
         std::initializer_list<QWidget *>{plot, spectrogram, positionPlot, splitPlot}) {
        widget->setVisible(widget == shown);
    }
}

void RVXScopePlotViewPrivate::showScrollBar(bool shown)
{
    q_ptr->setHorizontalScrollBarPolicy(shown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
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

QString RVXScopePlotViewPrivate::yTitle() const
{
    if (yScale.mode == RVXScopePlotView::Normalized)
        return RVXScopePlotView::tr("Relative Value");
    const QString unit = model.unitName();
    const bool hasUnit = model.plot() && model.plot()->units();
    return hasUnit ? unit : RVXScopePlotView::tr("Number");
}

void RVXScopePlotViewPrivate::canvasIsPainted()
{
    repaintAsked = false;
    replotPending = true;
    q_ptr->Plot();
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
        if (!parent.isValid())
            rowsHaveGone(start, end);
    });
    on(&Model::rowsMoved, [this] {
        rowsHaveMoved();
    });
    on(&Model::layoutChanged, [this] {
        rowsHaveMoved();
    });
    // The item view itself takes no notice of channels that come and go.
    const auto channelsChange = [this] {
        dropSweep();
        q_ptr->reset();
    };
    on(&Model::columnsInserted, channelsChange);
    on(&Model::columnsRemoved, channelsChange);
    on(&Model::columnsMoved, channelsChange);
}

void RVXScopePlotViewPrivate::stopWatching()
{
    for (const QMetaObject::Connection &watch : qAsConst(watches))
        QObject::disconnect(watch);
    watches.clear();
    rowsLeave = false;
}

//! The series of the curves read from it: none may be left when the canvas is painted next. The rest is cleared by the
//! reset that follows; the item view still asks the model when the scroll bar moves.
void RVXScopePlotViewPrivate::modelIsGone()
{
    model.set(nullptr);
    baseModel = nullptr;
    curves.dropData();
    sweepSamples.clear();
    showBufferSize();
    q_ptr->RequestReplot();
}

void RVXScopePlotViewPrivate::followBaseModel()
{
    QAbstractItemModel *const base = ScopeModel::innermost(q_ptr->model());
    if (base == baseModel)
        return;
    baseModel = base;
    batches.clear();
    dropSweep();
}

void RVXScopePlotViewPrivate::dropSweep()
{
    sweepSamples.clear();
    curves.detach();
}

void RVXScopePlotViewPrivate::createCurves()
{
    if (model.allChannels() > ScopeModel::maximumChannels) {
        qDebug("RVXScopePlotView: the first %d of %d channels are shown",
               ScopeModel::maximumChannels,
               model.allChannels());
    }
    curves.createCurves(model.channelCount());
}

void RVXScopePlotViewPrivate::restartSweeps()
{
    if (model.plot())
        sweep.setLengthHint(model.plot()->PlotWidthHintPoints());
    sweep.restart(model.lastRow());
    stripStart.restart();
}

void RVXScopePlotViewPrivate::rowsHaveCome(int start, int end)
{
    if (!model.plot())
        return;
    batches.add(end - start + 1);
    const int dropped =
        sweep.rowsInserted(start, end, model.lastRow(), model.plot()->PlotWidthHintPoints());
    if (dropped > 0) {
        markers.rowsRemoved(1, dropped);
        stripStart.rowsRemoved(1, dropped);
    }
    markers.rowsInserted(start, end);
    stripStart.rowsInserted(start);
}

void RVXScopePlotViewPrivate::rowsHaveGone(int start, int end)
{
    sweep.rowsRemoved(start, end);
    markers.rowsRemoved(start, end);
    stripStart.rowsRemoved(start, end);
    requestReplot();
}

void RVXScopePlotViewPrivate::rowsHaveMoved()
{
    sweep.forgetShown();
    markers.forgetRows();
    stripStart.restart();
    requestReplot();
}

void RVXScopePlotViewPrivate::cellsHaveChanged(int top, int bottom)
{
    const RowRange shown = sweep.shown();
    const bool all = top < 0 || bottom < 0;
    if (all || (bottom >= std::max(shown.first, 1) && top <= shown.last))
        sweepChanged = true;
    // Row 0 tells which channels are shown, and in which colours.
    if (sweepChanged || top == 0 || shown.size() < 1)
        refreshAsked = true;
}

int RVXScopePlotViewPrivate::stripLength() const
{
    const int hint = model.plot() ? model.plot()->PlotWidthHintPoints() : 0;
    const int batch = batches.median();
    return hint > 0 ? hint : batch > 0 ? batch : SweepProgress::defaultLength;
}

void RVXScopePlotViewPrivate::followSelection(int row, int channel)
{
    const bool isSample = isTimeMode(mode) && row >= 1 && row <= model.lastRow();
    markers.followSelection(isSample ? row : 0, channel);
    if (mode == RVXScopePlotView::HistogramMode)
        markers.item(0)->setValue(channel, 0.0);
    q_ptr->RequestReplotRefresh();
    // Plotted at once: the item view calls scrollTo() next, which leaves a sample alone that is on the axis.
    if (isSample && currentMode().showSample(markers.item(0)->xValue()))
        q_ptr->Plot();
}

/*! Notes the selection model that the item view has made in setModel(), and deletes the one that it made before unless
    another view uses that. The old one may be emitting the signal that led here, so it is deleted later. */
void RVXScopePlotViewPrivate::takeNewSelection(QItemSelectionModel *selection)
{
    delete oldSelection;
    if (viewSelection && !hasListeners(*viewSelection)) {
        oldSelection = viewSelection;
        oldSelection->deleteLater();
    }
    viewSelection = selection;
}

//! Colours the frame of the canvas, which covers no sample.
void RVXScopePlotViewPrivate::showFocus(bool focused)
{
    QPalette palette; // all other colours are still those of the view
    palette.setBrush(QPalette::Window, canvas->palette().window());
    palette.setColor(QPalette::WindowText, q_ptr->palette().color(QPalette::Highlight));
    canvas->setPalette(palette);
    canvas->setFrameStyle(QFrame::Panel | (focused ? QFrame::Plain : QFrame::Sunken));
    canvas->replot();
}

void RVXScopePlotViewPrivate::select(int marker, const QPointF &position)
{
    if (!markersEnabled)
        return;
    markers.place(marker, position);
    q_ptr->RequestReplotRefresh();
}

} // namespace Corvale_Qt
