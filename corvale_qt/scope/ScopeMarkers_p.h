// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: the two markers of the scope plot view.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <qwt_plot_marker.h>

#include <QPointF>
#include <QSharedPointer>
#include <QVector>

#include <array>
#include <limits>
#include <utility>

template<typename T>
class QwtSeriesData;

namespace Corvale_Qt {

//! What a marker stands on in one plot.
struct RVXScopePlotView::MarkerData
{
    int column = 0; //!< the channel it snapped to; 0 for none
    double x = 0.0;
    int row = -1; //!< the sample at x, among the rows that are plotted; -1 for none
    double y = std::numeric_limits<double>::max(); //!< as plotted
    double value = 0.0; //!< as the model has it
};

/*! Places the markers, finds the samples they stand on, and writes their labels.

    A marker is put where the user clicked; the next plot moves it onto the sample there, of the channel whose curve is
    nearest, and from then on it keeps to that channel. In strip mode it keeps to its sample, and goes when that
    leaves the model; in scope mode it keeps to its place in the sweep, so that it reads each sweep there.

    The sample of marker 0 is selected while the user moves that marker. After a selection that came from elsewhere it
    follows, and selects nothing. */
class ScopeMarkers
{
public:
    using Data = RVXScopePlotView::MarkerData;
    static constexpr int count = 2;

    ScopeMarkers(RVXScopePlotView *view, QwtPlot *plot, const ScopeModel &model);

    QSharedPointer<QwtPlotMarker> item(int index) const { return m_states[size_t(index)].item; }
    bool isAttached(int index) const { return item(index)->plot() != nullptr; }
    //! The marker that keys move: the one placed last.
    int selected() const { return m_selected; }

    void place(int index, const QPointF &position);
    //! Attaches both markers; the first one goes to a selected cell, row 0 for the whole channel.
    void followSelection(int row, int channel);
    void detach(int index);
    void detachAll();
    //! Another model: channels and rows mean nothing any more.
    void forgetChannels();
    //! Another mode: places in a sweep mean nothing any more.
    void forgetSweep();
    //! Rows of the model mean nothing any more: samples are found again by their time.
    void forgetRows();
    //! All samples have gone, and their markers with them.
    void samplesHaveGone();
    void rowsInserted(int start, int end);
    void rowsRemoved(int start, int end);

    /*! Fresh data for a plot, with the markers' x. \a reader gives the plotted samples, its row 1 is the first of
        \a modelRows, as far as these are still known. */
    void begin(const PlotColumnReader &reader, RowRange modelRows);
    //! The marker that keys move is the other one, where that is there.
    void selectOther();
    void clearLabels();
    //! The first sample whose x is not below \a x, with its own x; row -1 and \a x if there is none.
    std::pair<int, double> findStripMarkerTime(double x) const;
    //! Finds the markers' rows among all samples.
    void findInStrip();
    //! Finds the markers' rows among the \a size samples of a sweep.
    void findInSweep(int size);
    //! Takes the sample of \a channel for the markers that are nearer to it than to any channel so far.
    void snap(int channel, const QwtSeriesData<QPointF> &series, int firstRow);
    //! Moves a marker onto its sample and writes its label; marker 1 gets the numbers between both.
    void setStripMarker(int index, const std::pair<double, double> &xRange);

    //! Moves a marker of the strip chart by samples.
    void moveInStrip(int index, int steps);
    //! Moves a marker of a sweep by samples.
    void moveInSweep(int index, int steps, int sweepLength);

private:
    struct State
    {
        QSharedPointer<QwtPlotMarker> item;
        int channel = -1; //!< locked to this one; -1 for the nearest
        int held = -1; //!< the nearest one, once it is known
        bool onSample = false; //!< x is a sample's, no longer a click's
        int row = -1; //!< its sample in the model, in strip mode; -1 for not found yet
        int sweepOffset = -1; //!< sample of the sweep, counted from 0
    };

    bool takes(int index, int channel, double y, const Data &data) const;
    void readHeldChannel(int index);
    double value(int row, int channel) const;
    int sweepOffset(const State &state, double x, int size) const;
    void select(const Data &data) const;
    void describeSpan(const std::pair<double, double> &xRange);

    RVXScopePlotView *m_view;
    QwtPlot *m_plot;
    const ScopeModel &m_model;
    std::array<State, count> m_states;
    QVector<Data> m_data;
    // Of the plot that is being made.
    PlotColumnReader m_reader;
    RowRange m_modelRows;
    int m_selected = 0;
    bool m_selects = false; //!< the selection goes with marker 0
};

} // namespace Corvale_Qt
