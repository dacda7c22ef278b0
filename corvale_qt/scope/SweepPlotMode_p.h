// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

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
    void moveMarker(int index, int steps) override;

private:
    void drawAgain(int lastRow);
    void draw();
};

} // namespace Corvale_Qt
