// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXPlotHistory.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

//! Returns a block without readings, which readings and blocks can be added to.
RVXPlotHistory::Block emptyBlock();
//! Adds a reading to a block, unless it is not finite.
inline void addReading(double reading, RVXPlotHistory::Block &block)
{
    if (!std::isfinite(reading))
        return;
    ++block.count;
    block.least = std::min(block.least, reading);
    block.greatest = std::max(block.greatest, reading);
    // Divided before they are subtracted, since the difference of two enormous numbers overflows.
    const double share = 1.0 / double(block.count);
    block.mean += reading * share - block.mean * share;
}
//! Adds \a count readings to a block. Those that are not finite are left out.
void addReadings(const double *readings, int count, RVXPlotHistory::Block &block);
//! Adds the readings of a block to another one.
void addBlock(const RVXPlotHistory::Block &part, RVXPlotHistory::Block &block);

} // namespace Corvale_Qt
