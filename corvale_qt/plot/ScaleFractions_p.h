// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

//! The index of the automatic scale.
constexpr int kAutoScaleIndex = 0;
//! The index of the normalized scale; displays that have none keep their fraction.
constexpr int kNormalizeScaleIndex = 1;

/*! Returns the fraction of full scale that belongs to entry \a index of all scaling boxes: 1 for 1 and 2, then 0.5, 0.2, 0.1,
    0.05 ... down to 0.0001 for 14; 1 for any other index. */
double scaleFraction(int index);

} // namespace Corvale_Qt
