// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

/*! Returns \a value truncated towards zero and limited to \a least ... \a greatest; a NaN gives 0. A plain cast is
    undefined for a NaN and outside of int. */
inline int clampedToInt(double value,
                        int least = std::numeric_limits<int>::min(),
                        int greatest = std::numeric_limits<int>::max())
{
    return std::isnan(value) ? 0 : int(std::clamp(value, double(least), double(greatest)));
}

} // namespace Corvale_Qt
