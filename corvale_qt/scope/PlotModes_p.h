// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/RVXScopePlotView.h"

namespace Corvale_Qt {

//! The number of plot modes. The values of RVXScopePlotView::PlotMode, and of RVXScope::PlotMode, are the numbers below it.
constexpr int kPlotModes = RVXScopePlotView::SplitMode + 1;

//! Returns whether a number is that of a plot mode.
constexpr bool isPlotMode(int mode)
{
    return mode >= 0 && mode < kPlotModes;
}

} // namespace Corvale_Qt
