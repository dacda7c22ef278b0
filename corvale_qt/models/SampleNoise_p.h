// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

class PlotDataReader;

/*! Returns the standard deviation of the noise of the last 32 samples of a column up to \a lastRow, from the second differences
    of neighbours, so that a drift does not count. Returns 0 if there is no noise, and NaN if it is not known yet: with fewer than
    five finite neighbours. */
double sampleNoise(const PlotDataReader &reader, int column, int lastRow);

} // namespace Corvale_Qt
