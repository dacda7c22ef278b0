// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

//! The index that asks for an automatic scale.
constexpr int kAutoScaleIndex = 0;
//! The index that keeps the fraction in force, where there is one.
constexpr int kNormalizeScaleIndex = 1;

/*! Fraction of full scale that entry \a index of every scaling box stands for: 1 for 1 and 2, then 0.5, 0.2,
    0.1, 0.05 ... down to 0.0001 for 14; 1 for any other index. */
double scaleFraction(int index);

} // namespace Corvale_Qt
