// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/ChannelMoves_p.h"
#include "corvale_qt/scope/HistorySpan_p.h"
#include "corvale_qt/scope/MarkerSpan_p.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <qwt_plot_marker.h>

#include <QPointF>
#include <QSharedPointer>

#include <array>
#include <limits>
#include <utility>

class QwtPlot;

template<typename T>
class QwtSeriesData;

namespace Corvale_Qt {

class BlockStatistics;
class ScopeAxes;
class ScopeSurface;
class TimeGaps;
struct MarkedSample;
struct ScopeMarkerStatistics;
struct SpanIntegral;

/*! Places the markers, finds the samples they stand on, and writes their labels.

    A marker is put where the user clicked. The next plot moves it onto the sample there, of the channel whose curve is
    nearest, and from then on the marker keeps to that channel. In strip mode it keeps to its sample, and is removed
    when that sample leaves the model. In scope mode it keeps to its place in the sweep and reads each sweep there.

    The sample of marker 0 is selected while the user moves that marker. After a selection that came from elsewhere the
    marker follows the selection and does not change it. */
class ScopeMarkers
{
public:
    static constexpr int count = 2;

    ScopeMarkers(ScopeSurface &surface,
                 QwtPlot *plot,
                 const ScopeModel &model,
                 const ScopeAxes &axes);

    QSharedPointer<QwtPlotMarker> item(int index) const { return m_states[size_t(index)].item; }
    bool isAttached(int index) const { return m_states[size_t(index)].item->plot() != nullptr; }
    //! Returns the marker that keys move, the one placed last; -1 if the user has deselected it.
    int selected() const { return m_selected; }

    //! Where a marker was placed, so that it can be put back there.
    struct Placed
    {
        bool isAttached = false;
        QPointF value;
        int channel = -1;
        int held = -1;
        bool onSample = false;
        int sweepOffset = -1;
        int selected = 0;
        bool selects = false;
        int yAxis = 0; //!< that the y of the value belongs to
    };
    Placed placed(int index) const;
    //! Puts marker 0 back to where it was.
    void restore(const Placed &placed);
    //! Makes keys move no marker, until one is placed or selected again.
    void selectNone() { m_selected = -1; }

    //! Puts a marker where the user clicked, in plot coordinates of the left axis.
    void place(int index, const QPointF &position);
    //! Attaches both markers. Marker 0 moves to the selected cell; \a row is 0 for a whole channel.
    void followSelection(int row, int channel);
    void detach(int index);
    void detachAll();
    //! Keeps to the same channels, whose numbers are others now.
    void followChannels(const ChannelMoves &now);
    //! Forgets the channels and rows of the markers, because the model is another one.
    void forgetChannels();
    //! Forgets channels behind the last one that there is.
    void forgetChannelsAfter(int last);
    //! Forgets the markers' places in the sweep and what they read, because the plot mode is another one.
    void forgetSweep();
    //! Makes the next update read the samples between the markers again.
    void forgetSpan() { m_span.forget(); }
    //! Forgets the markers' rows: their samples are found again by time.
    void forgetRows();
    //! Notes that cells of rows \a top to \a bottom have changed; -1 means all rows.
    void cellsChanged(int top, int bottom);
    //! Removes the markers that stood on a sample, because all samples have gone.
    void samplesHaveGone();
    //! Moves the markers' rows along with rows \a start to \a end, which the model has inserted.
    void rowsInserted(int start, int end);
    //! Removes the markers on rows \a start to \a end, which the model has removed, and moves the rows of the others.
    void rowsRemoved(int start, int end);

    /*! Begins a plot. \a reader gives the plotted samples; its row 1 is the first of \a modelRows, as far as these are
        still known. */
    void begin(const PlotDataReader &reader, RowRange modelRows);
    //! Sets the gaps among the rows that are plotted next; they must live as long as the markers.
    void setGaps(const TimeGaps &gaps) { m_gaps = &gaps; }
    //! Lets keys move the other marker, if that is attached.
    void selectOther();
    void clearLabels();
    /*! Finds the markers' rows among all samples. A marker before \a firstX, where there are only the blocks of \a history, stays
        where it is, or moves to the nearest block, and reads that. It is removed when the history forgets its time. \a history,
        which has blocks, may be null. */
    void findInStrip(const RVXPlotHistory *history, double firstX);
    //! Gives the block of \a channel to the markers that stand on blocks, as snap() does; what is drawn is divided by \a divisor.
    void snapToBlock(int channel, double divisor);
    //! Finds the markers' rows among the \a size samples that are left of a sweep, whose first \a lost are gone.
    void findInSweep(int size, int lost);
    //! Gives the sample of \a channel to the markers that are nearer to it than to any channel so far.
    void snap(int channel, const QwtSeriesData<QPointF> &series, int firstRow);
    //! Moves a marker onto its sample and writes its label; marker 1 also shows the statistics between both.
    void setStripMarker(int index, const std::pair<double, double> &xRange);

    //! Returns what the markers read in the last plot of samples.
    ScopeMarkerStatistics statistics() const;
    //! Forgets what the markers read, because those samples are not plotted any more.
    void forgetReadings();

    //! Sets whether the label of marker 1 shows more than the usual statistics.
    void setDetailed(bool detailed) { m_isDetailed = detailed; }
    bool isDetailed() const { return m_isDetailed; }

    //! Moves a marker of the strip chart by samples, or by blocks where there are no samples any more.
    void moveInStrip(int index, int steps);
    //! Moves a marker of a sweep by samples.
    void moveInSweep(int index, int steps, int sweepLength);

private:
    struct State
    {
        QSharedPointer<QwtPlotMarker> item;
        int channel = -1; //!< the selected channel, which the marker keeps to; -1 for the nearest
        int held = -1; //!< the channel it snapped to; -1 before the first plot
        bool onSample = false; //!< x is that of a sample, no longer that of a click
        bool inBlocks = false; //!< in strip mode, x is before the first row and in a block
        int row = -1; //!< row of its sample in the model, in strip mode; -1 if not found yet
        int sweepOffset = -1; //!< sample of the whole sweep, counted from 0; -1 if not found yet
    };

    //! The sample of a marker in the current plot.
    struct Data
    {
        int column = 0; //!< the channel it snapped to; 0 for none
        double x = 0.0;
        int row = -1; //!< row of the sample among those that are plotted; -1 for none
        double y = std::numeric_limits<double>::max(); //!< as plotted
        double distance = std::numeric_limits<double>::max(); //!< of y from the click
        double value = 0.0; //!< as the model has it
        HistoryPlace place; //!< of a marker that has no row
        RVXPlotHistory::Block block; //!< of its channel there
    };

    int keptChannel(int index) const;
    bool takes(int index, int channel, double y, Data &data) const;
    double distance(const QwtPlotMarker &marker, int channel, double y) const;
    void remove(int index);
    void findInBlocks(int index);
    int moveInBlocks(int index, int steps);
    void readHeldChannel(int index);
    static bool isOnBlock(const Data &data) { return data.place.isValid() && data.column > 0; }
    QString labelText(const Data &data, double resolution) const;
    const RVXPlotHistory *history() const;
    bool spansBlocks() const;
    BlockStatistics blockStatistics() const;
    MarkedSample marked(const Data &data, double resolution) const;
    double value(int row, int channel) const;
    int sweepOffset(const State &state, double x, int size) const;
    int modelRow(const Data &data) const;
    bool reads(int index) const;
    RowRange spanRows() const;
    const MarkerStatistics &span() const;
    const SpanIntegral &spanIntegral() const;
    bool isComparable() const;
    void select(const Data &data) const;
    bool describeSpan(const std::pair<double, double> &xRange);

    ScopeSurface &m_surface;
    QwtPlot *m_plot;
    const ScopeModel &m_model;
    const ScopeAxes &m_axes;
    std::array<State, count> m_states;
    std::array<Data, count> m_data;
    PlotDataReader m_reader; //!< of the current plot
    RowRange m_modelRows; //!< of the current plot
    const TimeGaps *m_gaps = nullptr; //!< of the current plot
    const RVXPlotHistory *m_history =
        nullptr; //!< of the current plot, and read only during that; null for none
    mutable MarkerSpan m_span;
    int m_lostOfSweep =
        0; //!< samples of the current sweep that are gone, counted from its beginning
    int m_selected = 0;
    bool m_isDetailed = false;
    bool m_selects = false; //!< the selection follows marker 0
};

} // namespace Corvale_Qt
