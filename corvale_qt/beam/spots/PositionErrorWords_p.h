// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/PositionErrorStatistics.h"
#include "corvale_qt/plot/AccessibleChart_p.h"

namespace Corvale_Qt {

//! Returns the text of a number in the fields of a position error plot: "N/A" if it is not finite, and 0 without a sign.
QString positionErrorText(double value, int decimals);
//! Returns what a screen reader says of position errors: how many spots there are, how many are outside, and the means.
ChartWords positionErrorWords(const PositionErrorStatistics &errors);

} // namespace Corvale_Qt
