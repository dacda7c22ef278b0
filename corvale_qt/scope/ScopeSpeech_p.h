// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/AccessibleChart_p.h"

namespace Corvale_Qt {

class RVXScopePlotView;

//! Returns what a screen reader says of a scope: its mode, whether it is held, and the newest values of the channels shown.
ChartWords wordsOf(const RVXScopePlotView &view);

} // namespace Corvale_Qt
