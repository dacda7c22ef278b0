// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: the state of the scope plot view.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/scope/BatchSizes_p.h"
#include "corvale_qt/scope/HistogramStatistics_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeAxes_p.h"
#include "corvale_qt/scope/ScopeCurves_p.h"
#include "corvale_qt/scope/ScopeMarkers_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/ScopePlotMode_p.h"
#include "corvale_qt/scope/StripStart_p.h"
#include "corvale_qt/scope/SweepProgress_p.h"
#include "corvale_qt/scope/SweepSamples_p.h"

#include <qwt_plot_grid.h>
#include <qwt_plot_histogram.h>

#include <QItemSelectionModel>
#include <QLabel>
#include <QObject>
#include <QPointer>

#include <array>
#include <memory>

class QVBoxLayout;
class QwtPlot;
class QwtPlotCanvas;
class QwtPlotPicker;

namespace Corvale_Qt {

//! Has the plot made when the canvas is about to be painted.
class RVXScopePlotViewEventFilter : public QObject
{
public:
    explicit RVXScopePlotViewEventFilter(RVXScopePlotViewPrivate *view);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    RVXScopePlotViewPrivate *d;
};

class RVXScopePlotViewPrivate
{
public:
    explicit RVXScopePlotViewPrivate(RVXScopePlotView *view);
    ~RVXScopePlotViewPrivate();

    void prepareCanvas();
    void prepareItems();
    void preparePickers();
    void createModes();

    //! Only the plot, or only one of its companions.
    void showOnly(QWidget *shown);
    void showScrollBar(bool shown);
    void showBufferSize();
    QString yTitle() const;
    void requestReplot() { q_ptr->RequestReplot(); }
    void canvasIsPainted();
    //! Beyond what an item view does for its model.
    void watch(QAbstractItemModel *items);
    void stopWatching();
    void modelIsGone();
    void followBaseModel();
    //! Forgets the sweep that was drawn, because the channels or the instrument have changed.
    void dropSweep();
    void rowsHaveCome(int start, int end);
    void rowsHaveGone(int start, int end);
    void rowsHaveMoved();
    //! Rows \a top to \a bottom have new values; -1 means all rows.
    void cellsHaveChanged(int top, int bottom);
    //! Samples across the strip chart, where it has no width in units of x.
    int stripLength() const;
    void takeNewSelection(QItemSelectionModel *selection);
    void showFocus(bool focused);
    void createCurves();
    void restartSweeps();
    void select(int marker, const QPointF &position);
    void followSelection(int row, int channel);
    ScopePlotMode &currentMode() const { return *modes[size_t(mode)]; }
    //! Whether x of the plot is time in a mode; it is the channel, or nothing, in the others.
    static bool isTimeMode(int mode) { return mode < RVXScopePlotView::HistogramMode; }

    RVXScopePlotView *const q_ptr;
    QVBoxLayout *const layout; //!< the viewport's
    QwtPlot *const plot;
    QwtPlotCanvas *const canvas;
    QwtPlotGrid grid;
    QwtPlotHistogram histogram;
    HistogramStatistics statistics;
    RVXSpectrogram *const spectrogram;
    RVXPositionPlot *const positionPlot;
    RVXSplitPlot *const splitPlot;

    ScopeModel model;
    QPointer<QAbstractItemModel> baseModel; //!< below all proxies
    QVector<QMetaObject::Connection> watches;
    ScopeAxes axes;
    ScopeMarkers markers;
    ScopeCurves curves;
    SweepProgress sweep;
    SweepSamples sweepSamples; //!< of the sweep that is shown
    BatchSizes batches;
    StripStart stripStart;
    std::array<std::unique_ptr<ScopePlotMode>, 6> modes;
    std::unique_ptr<RVXScopePlotViewEventFilter> eventFilter;

    int mode = RVXScopePlotView::StripMode;
    YScale yScale;
    bool pixelated = false;
    bool markersEnabled = false;
    bool replotPending = false;
    bool plotting = false;
    bool repaintAsked = false; //!< the canvas has been asked and was not painted since
    bool pictureStale = false; //!< what the canvas keeps is older than the last request
    bool rowsLeave = false; //!< the model is just removing rows
    bool refreshAsked = false; //!< the last sweep will do where there is no new one
    bool sweepChanged = false; //!< the model gives other numbers for it than it did
    QPointer<QItemSelectionModel> viewSelection; //!< made by setModel()
    QPointer<QItemSelectionModel> oldSelection; //!< waits to be deleted
    QPointer<QLabel> bufferSizeLabel;
    int samplesShown = -1; //!< by the label
};

} // namespace Corvale_Qt
