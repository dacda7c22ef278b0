// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXPlotHistory.h"

namespace Corvale_Qt {

//! Returns a block without readings, which readings and blocks can be added to.
RVXPlotHistory::Block emptyBlock();
//! Adds \a count readings to a block. Those that are not finite are left out.
void addReadings(const double *readings, int count, RVXPlotHistory::Block &block);
//! Adds the readings of a block to another one.
void addBlock(const RVXPlotHistory::Block &part, RVXPlotHistory::Block &block);

} // namespace Corvale_Qt
