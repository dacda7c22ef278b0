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
    int row = -1; //!< the sample at x; -1 for none
    double y = std::numeric_limits<double>::max(); //!< as plotted
    double value = 0.0; //!< as the model has it
};

/*! Places the markers, finds the samples they stand on, and writes their labels.

    A marker is put where the user clicked; the next plot moves it onto the sample there, of the channel whose curve is
    nearest, and from then on it keeps to that channel. In strip mode it keeps to its sample; in scope mode to its
    place in the sweep, so that it reads each sweep there. */
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
    //! The marker keeps to this channel, wherever it was clicked.
    void lockToChannel(int index, int channel);
    void attach(int index);
    void detach(int index);
    void detachAll();
    //! Another model: channels and rows mean nothing any more.
    void forgetChannels();
    //! Another mode: places in a sweep mean nothing any more.
    void forgetSweep();

    //! Fresh data for a plot, with the markers' x.
    void begin();
    //! The marker that keys move is the other one, where that is there.
    void selectOther();
    void clearLabels();
    //! The first sample whose x is not below \a x, with its own x; row -1 and \a x if there is none.
    std::pair<int, double> findStripMarkerTime(double x) const;
    //! Finds the markers' rows among all samples.
    void findInStrip();
    //! Finds the markers' rows among those of a sweep.
    void findInSweep(RowRange sweep);
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
        int sweepOffset = -1; //!< sample of the sweep, counted from 0
    };

    bool takes(int index, int channel, double y, const Data &data) const;
    void readHeldChannel(int index);
    void select(const Data &data) const;
    void describeSpan(const std::pair<double, double> &xRange);

    RVXScopePlotView *m_view;
    QwtPlot *m_plot;
    const ScopeModel &m_model;
    std::array<State, count> m_states;
    QVector<Data> m_data;
    int m_selected = 0;
};

} // namespace Corvale_Qt
