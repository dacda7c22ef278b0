// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/ChannelLimits.h"
#include "corvale_qt/plot/LimitLines_p.h"
#include "corvale_qt/scope/ChannelMoves_p.h"
#include "corvale_qt/scope/SampleRows_p.h"

#include <QMap>
#include <QVector>

#include <array>
#include <functional>

class QwtPlot;

namespace Corvale_Qt {

class PlotDataReader;
class ScopeAxes;
class ScopeModel;

//! The limits of the channels: judges every row that the model inserts and draws the limits as lines.
class ScopeLimits
{
public:
    ScopeLimits(QwtPlot *plot, const ScopeModel &model, const ScopeAxes &axes);

    //! Sets the limits of a channel, counted from 1; empty ones remove them.
    void set(int channel, const ChannelLimits &limits);
    //! Returns whether no channel has limits.
    bool isEmpty() const { return m_watches.isEmpty(); }
    ChannelLimits of(int channel) const { return m_watches.value(channel).limits(); }
    LimitState state(int channel) const { return m_watches.value(channel).state(); }

    //! Has limits and states follow their channels. Returns the numbers of the channels whose limits are others.
    QVector<int> follow(const ChannelMoves &now);

    //! A channel has passed to another state.
    struct Change
    {
        int channel = 0;
        LimitState state = LimitState::Normal;
    };

    //! Judges rows that the model has inserted.
    void judge(RowRange rows);
    //! Judges the newest row as if it were the first one.
    void judgeAnew();
    bool hasChanges() const { return !m_changes.isEmpty(); }
    /*! Returns the changes since the last call, in the order of the channels for rows that came together. Of more than 10000
        the last one of each channel ends the list. */
    QVector<Change> takeChanges();

    //! Draws the limits of the shown channels across the whole width.
    void showOverTime();
    /*! Draws the limits of the shown channels at their bars, whose values are divided by \a divisor; \a barOf gives the x of a
        channel's bar. */
    void showOverBars(double divisor, const std::function<QwtInterval(int channel)> &barOf);
    //! Takes the lines off the plot.
    void hide();

private:
    LimitWatch watchAnew(int channel, const ChannelLimits &limits) const;
    void add(const PlotDataReader &reader,
             int channel,
             LimitWatch &watch,
             RowRange rows,
             const double *x);
    void note(int channel, LimitState state);
    template<typename LineOf>
    void show(LineOf lineOf);

    QwtPlot *m_plot;
    const ScopeModel &m_model;
    const ScopeAxes &m_axes;
    QMap<int, LimitWatch> m_watches; //!< of the channels that have limits
    QVector<Change> m_changes;
    QMap<int, LimitState> m_cut; //!< the last state of each channel after these
    std::array<LimitLines, 2> m_lines; //!< of the left and the right y axis
};

} // namespace Corvale_Qt
