// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/BatchSizes_p.h"
#include "corvale_qt/scope/CanvasNote_p.h"
#include "corvale_qt/scope/ChannelUnits_p.h"
#include "corvale_qt/scope/HistogramStatistics_p.h"
#include "corvale_qt/scope/ScopeAxes_p.h"
#include "corvale_qt/scope/ScopeCurves_p.h"
#include "corvale_qt/scope/ScopeGaps_p.h"
#include "corvale_qt/scope/ScopeLimits_p.h"
#include "corvale_qt/scope/ScopeMarkers_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/ScopeTimeAxis_p.h"
#include "corvale_qt/scope/StripWindow_p.h"
#include "corvale_qt/scope/SweepProgress_p.h"
#include "corvale_qt/scope/SweepSamples_p.h"
#include "corvale_qt/scope/TriggerMarks_p.h"
#include "corvale_qt/scope/TriggeredSweeps_p.h"
#include "corvale_qt/scope/ViewHold_p.h"

#include <qwt_plot_histogram.h>

#include <QString>

#include <limits>
#include <optional>

class QwtPlot;

namespace Corvale_Qt {

class ScopeSurface;

//! How much a host wants to see at once; 0 leaves the decision to the model.
struct ScopeSpan
{
    double time = 0.0; //!< width of the strip chart in units of x; infinity for all samples
    int samples = 0; //!< in a sweep and across the strip chart

    //! Returns whether the strip chart shows all samples.
    bool isWhole() const;
};

//! The model, and the parts that all plot modes draw it with. Plot and surface are not owned.
struct ScopeContext
{
    ScopeContext(QwtPlot *thePlot, ScopeSurface &theSurface);

    //! Makes a curve for each channel of the model, in place of those there are.
    void createCurves();
    //! Forgets a model that is being deleted, and everything that reads from it.
    void removeModel();
    //! Forgets the sweep that was drawn, because the channels or the instrument have changed.
    void dropSweep();
    //! Begins again with row 1 of the model.
    void restart();

    //! Moves what is set for a channel along with it. Returns the numbers of the channels whose limits are others.
    QVector<int> followChannels(const ChannelMoves &now);
    // The model announces rows and cells; the markers, the sweep and the start of the strip chart follow.
    void rowsInserted(int start, int end);
    void rowsRemoved(int start, int end);
    void rowsMoved();
    //! Rows \a top to \a bottom have new values; -1 means all rows.
    void cellsChanged(int top, int bottom);

    //! Gives the y axes the units of the channels, of which \a show tells what is drawn. A mode calls it before it draws.
    void followUnits(ScopeAxes::Show show);
    //! Returns the unit that a range belongs to which is set now: that of the left axis. None before it is known.
    std::optional<QString> unitOfRange() const;
    //! Returns whether the range that was set is in the unit of the left axis, or has not been shown in any unit yet.
    bool isRangeInShownUnit() const;
    //! Titles the y axes with the units that they show, or with what stands for them.
    void showYTitles();
    //! Says on the canvas which channels are not drawn: those whose unit has no axis, and these, whose values have no logarithm.
    void noteHidden(const QStringList &notPositive);
    //! Takes the line that noteHidden() writes off the canvas.
    void hideNote();
    //! Returns the width of a strip chart in units of x; 0 if it shows a number of samples, infinity if it shows all.
    double stripWidth() const;
    //! Returns how many samples a strip chart shows while stripWidth() is 0.
    int stripLength() const;
    //! Returns how many samples the host or else the model wants in a sweep; 0 or less if neither does.
    int sweepHint() const;

    //! Gives the y axes the ranges that a user has zoomed to, if there are any.
    void holdYAxis();

    QwtPlot *const plot;
    ScopeSurface &surface;
    ScopeModel model;
    QStringList channelNames; //!< by which channels are found again after a reset
    ScopeSpan span;
    ChannelUnits units;
    YScale yScale;
    ScopeAxes axes;
    ScopeMarkers markers;
    ScopeCurves curves;
    ScopeGaps gaps;
    ScopeLimits limits;
    QwtPlotHistogram histogram;
    CanvasNote note;
    bool hasBarNames = false; //!< the bars are labelled with the names of their channels
    bool namesChanged = false; //!< channels may have other names than in the last plot
    HistogramStatistics statistics;

    // Navigation.
    ScopeTimeAxis timeAxis;
    ViewHold hold; //!< what a user has zoomed or panned to
    bool interactive = false; //!< a user may zoom and pan

    // Strip chart.
    bool beginsAtFirst = false; //!< no time before the first sample is shown
    bool movesByPixels = false; //!< the chart moves by whole pixels
    double timeEnd = std::numeric_limits<
        double>::quiet_NaN(); //!< x that is reached at least; NaN for the newest sample
    BatchSizes batches;
    StripStart stripStart;

    // Sweeps.
    SweepProgress sweep;
    TriggeredSweeps triggered; //!< which sweeps are shown while there is a trigger
    TriggerMarks triggerMarks;
    SweepSamples sweepSamples; //!< a copy of the sweep that is shown
    bool refreshAsked = false; //!< the last sweep is drawn again if there is no new one
    bool sweepChanged = false; //!< values of the sweep in the model differ from the copy
};

} // namespace Corvale_Qt
