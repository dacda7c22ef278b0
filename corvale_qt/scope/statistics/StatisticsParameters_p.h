// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/ClampedInt_p.h"

#include <cmath>

namespace Corvale_Qt {

/*! \file
    Conversion of the parameters of statistics items, which are passed as doubles, into counts of channels. */

//! Returns \a value truncated towards 0 and limited to +-1e6, more than any profile has channels; 0 for NaN.
inline int toTruncated(double value)
{
    constexpr int largest = 1000000;
    return clampedToInt(value, -largest, largest);
}

//! Returns \a value rounded half away from 0 and limited to +-1e6; 0 for NaN.
inline int toRounded(double value)
{
    return toTruncated(std::round(value));
}

} // namespace Corvale_Qt
