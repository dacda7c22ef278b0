// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/SweepTrigger.h"

#include <qwt_plot_marker.h>
#include <qwt_plot_textlabel.h>

#include <QColor>

class QwtPlot;

namespace Corvale_Qt {

//! What a plot of sweeps shows of its trigger: the level, the time of the trigger, and the state in words.
class TriggerMarks
{
public:
    explicit TriggerMarks(QwtPlot *plot);

    /*! Shows the trigger, whose channel has \a colour and is drawn on \a axis. The level is left out if that is not a y axis, as in
        a plot whose curves have separate scales. */
    void show(const SweepTrigger &trigger, TriggerState state, const QColor &colour, int axis);
    //! Takes everything off the plot.
    void hide();

private:
    void showState(TriggerState state);

    QwtPlot *m_plot;
    QwtPlotMarker m_level;
    QwtPlotMarker m_origin;
    QwtPlotTextLabel m_text;
    TriggerState m_state = TriggerState::Off;
};

//! Returns the word for a state: "Armed", "Triggered" or "Auto"; empty for TriggerState::Off.
QString triggerStateText(TriggerState state);

} // namespace Corvale_Qt
