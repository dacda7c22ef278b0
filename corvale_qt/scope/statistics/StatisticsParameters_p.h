// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: parameters of statistics items come as doubles.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

//! An int that no profile's length exceeds, whatever the parameter is.
inline int toTruncated(double value)
{
    constexpr double largest = 1.0e6;
    return std::isnan(value) ? 0 : int(std::clamp(value, -largest, largest));
}

//! The same, half away from zero.
inline int toRounded(double value)
{
    return toTruncated(std::round(value));
}

} // namespace Corvale_Qt
