// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/SampleRows_p.h"
#include "corvale_qt/scope/TimePlotMode_p.h"

namespace Corvale_Qt {

//! Complete sweeps, one after the other, as an oscilloscope shows them.
class SweepPlotMode : public TimePlotMode
{
public:
    using TimePlotMode::TimePlotMode;
    void enter() override;
    void plot() override;
    void clear() override;
    ScopeMarkerStatistics markerStatistics() const override;
    void moveMarker(int index, int steps) override;
    QwtInterval timeExtent() const override;

private:
    QString xTitle() const override;
    bool isHeld() const;
    void plotTriggered(int lastRow, bool refresh);
    void take(RowRange rows);
    void drawAgain(int lastRow);
    void draw();
    void showTrigger();

    int m_lost = 0; //!< samples before the first one that is shown, which have left the model
    int m_origin =
        0; //!< the sample of the sweep at which its time is 0, counted from 1; 0 without a trigger
};

} // namespace Corvale_Qt
