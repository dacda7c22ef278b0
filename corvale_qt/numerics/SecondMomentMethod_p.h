// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {
//! The constants of the widths from second moments, for profiles and for images; ISO 11146-1 and 11146-3.
namespace SecondMomentMethod {

//! The share of the cells, at each end or in each corner, that the background is taken from, and the least number of cells.
inline constexpr double kBackgroundShare = 0.05;
inline constexpr int kLeastBackgroundCells = 2;
//! Half the width of the area that is integrated: three beam widths of four sigma each, about the mean.
inline constexpr double kAreaInSigma = 6.0;
//! The area and the moments follow each other; where they have not settled after this many rounds, there is no result.
inline constexpr int kMostIterations = 100;

} // namespace SecondMomentMethod
} // namespace Corvale_Qt
