// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: parameters of statistics items come as doubles.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/numerics/ClampedInt_p.h"

#include <cmath>

namespace Corvale_Qt {

//! An int that no profile's length exceeds, whatever the parameter is.
inline int toTruncated(double value)
{
    constexpr int largest = 1000000;
    return clampedToInt(value, -largest, largest);
}

//! The same, half away from zero.
inline int toRounded(double value)
{
    return toTruncated(std::round(value));
}

} // namespace Corvale_Qt
