// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

class PlotColumnReader;

/*! Returns the standard deviation of the noise of the last 32 samples of a column up to \a lastRow, from the differences of
    neighbours, so that a drift does not count. Returns 0 if it is not known: with fewer than three finite neighbours, or if
    all samples are equal. */
double sampleNoise(const PlotColumnReader &reader, int column, int lastRow);

} // namespace Corvale_Qt
