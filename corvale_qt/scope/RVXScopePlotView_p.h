// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/GridLines_p.h"
#include "corvale_qt/scope/PlotModes_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/ScopeNavigation_p.h"
#include "corvale_qt/scope/ScopePlotMode_p.h"
#include "corvale_qt/scope/ScopeSurface_p.h"
#include "corvale_qt/scope/UnitsWatch_p.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QVector>

#include <array>
#include <memory>

class QRegion;
class QVBoxLayout;
class QwtPlotCanvas;

namespace Corvale_Qt {

class ScopeLegend;
struct CanvasLook;

//! Makes the plot when its axes or its canvas are about to be painted.
class RVXScopePlotViewEventFilter : public QObject
{
public:
    explicit RVXScopePlotViewEventFilter(RVXScopePlotViewPrivate *view);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    RVXScopePlotViewPrivate *d;
};

//! The state of a scope plot view: its widgets, its plot modes and the pending requests.
class RVXScopePlotViewPrivate final : public ScopeSurface
{
public:
    explicit RVXScopePlotViewPrivate(RVXScopePlotView *view);
    ~RVXScopePlotViewPrivate() override;

    void prepareCanvas();
    void prepareItems();
    void preparePickers();
    void createModes();
    //! Titles the y axis, and tells hosts, when it shows another unit.
    void followShownUnit();
    //! Shows the legend while it is wanted and the plot is shown.
    void showLegend();
    //! Deletes the legend, which uses this class when it loses the focus.
    void removeLegend();
    void showLook(const CanvasLook &look);

    void showOnly(QWidget *shown) override;
    void showScrollBar(bool shown) override;
    QScrollBar *scrollBar() const override;
    void requestReplot() override;
    void selectCell(int row, int column) override;

    //! Switches to a mode, also without a model. Does nothing for a number that is not a mode.
    void setMode(int newMode);
    //! Sets the full-scale range and applies it to the y axis.
    void setRange(const std::pair<double, double> &range);
    //! Sets the range of the right axis; empty lets it follow its channels.
    void setOtherRange(const std::optional<ValueRange> &range);
    //! Asks for a plot that also draws the last sweep again.
    void requestRefresh();
    //! Plots anew after timeSpan, sampleSpan or beginAtFirst has changed.
    void spanChanged();

    //! Makes the plot that is pending, so that the markers read the newest samples, even if nothing is painted.
    void plotForMarkers();
    //! Calls announce() from the event loop if a host listens and there may be something to tell.
    void announceLater();
    // What the readings are watched for follows the model and the plots.
    void cellsChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    void restart();
    void dropSweep();
    //! Moves what is set for a channel along with it, and tells hosts.
    void followChannels(const ChannelMoves &now);
    //! Follows channels by their names, which may stand elsewhere after a reset.
    void followNames();
    void plotMode();
    //! Announces from the event loop the channels whose limit state has changed, if there are any.
    void announceLimitsLater();
    void announceLimits();
    //! Announces from the event loop that channels may be drawn on other axes, if they may.
    void announceAxesLater();
    //! Announces the new state of the trigger from the event loop, if it has changed.
    void announceTriggerLater();
    //! Tells hosts that the statistics, or what the markers read, have changed.
    void announce();
    template<typename Signal>
    bool isHeard(Signal signal) const;
    void announceStatistics();
    void announceMarkers();

    void showBufferSize();
    /*! Plots what was asked for, before a region of the plot is painted, with the axes beneath the canvas: their texts go with the
        curves, and have room. */
    void plotIsPainted(const QRegion &painted);
    //! Plots before the canvas is painted, unless that was done for the axes.
    void canvasIsPainted();
    //! Listens to the signals of a model that an item view ignores.
    void watch(QAbstractItemModel *items);
    void stopWatching();
    void modelIsGone();
    //! Notes the model below all proxies; another one is another instrument, whose sweeps begin anew.
    void followBaseModel();
    void takeNewSelection(QItemSelectionModel *selection);
    void showFocus(bool focused);
    void select(int marker, const QPointF &position);
    double xOfReadingAt(double x) const;
    void followSelection(int row, int channel);
    //! Moves or removes the marker placed last. Returns false if there is none or the key means something else.
    bool markerKeyPressed(int key, int steps);
    //! Returns the bars of the selected channels on the viewport, or the whole canvas in modes without bars.
    QRegion selectionRegion(const QItemSelection &selection) const;
    ScopePlotMode &currentMode() const { return *modes[size_t(mode)]; }
    //! Returns whether x of the plot is time in a mode. It is the channel, or nothing, in the others.
    static bool isTimeMode(int mode) { return mode < RVXScopePlotView::HistogramMode; }

    RVXScopePlotView *const q_ptr;
    QVBoxLayout *const layout; //!< the viewport's
    QwtPlot *const plot;
    QwtPlotCanvas *const canvas;
    GridLines grid;
    RVXSpectrogram *const spectrogram;
    RVXPositionPlot *const positionPlot;
    RVXSplitPlot *const splitPlot;

    ScopeContext context; //!< needs the plot
    QPointer<QAbstractItemModel> baseModel; //!< below all proxies
    QVector<QMetaObject::Connection> watches;
    std::array<std::unique_ptr<ScopePlotMode>, kPlotModes> modes; // by their number
    std::unique_ptr<RVXScopePlotViewEventFilter> eventFilter;
    UnitsWatch unitsWatch;
    std::unique_ptr<ScopeNavigation> navigation;

    int mode = RVXScopePlotView::StripMode;
    bool markersEnabled = false;
    bool channelsFollowed =
        false; //!< a reset is made because of channels that were followed already
    bool replotPending = false;
    bool plotting = false;
    bool plottedBefore =
        false; //!< the plot was made for the picture that the canvas is about to be painted for
    bool repaintAsked = false; //!< the canvas was asked to repaint and has not been painted since
    bool pictureStale = false; //!< the backing store of the canvas is older than the last request
    bool rowsLeave = false; //!< the model is removing rows right now
    QPointer<QItemSelectionModel> viewSelection; //!< made by setModel()
    QPointer<QItemSelectionModel> oldSelection; //!< waits to be deleted
    bool announcementAsked = false;
    bool limitsAnnouncementAsked = false;
    TriggerState announcedTrigger = TriggerState::Off;
    int announcedAxes = 0; //!< a version of the axes of the channels
    ScopeMarkerStatistics announcedMarkers;
    QPointer<QLabel> bufferSizeLabel;
    int samplesShown = -1; //!< by the label

    // Channels.
    QPointer<ScopeLegend> legend; //!< made when it is wanted for the first time
    bool isLegendWanted = false;
};

} // namespace Corvale_Qt
