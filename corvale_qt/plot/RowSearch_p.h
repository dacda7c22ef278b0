// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <algorithm>

namespace Corvale_Qt {

//! Returns the first row in [low, high) for which isPast is true, or high; isPast turns from false to true once.
template<typename Predicate>
int firstPast(int low, int high, Predicate isPast)
{
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (isPast(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

//! Returns what firstPast() returns, but faster if the row is about \a guess rows after low.
template<typename Predicate>
int firstPastNear(int low, int high, int guess, Predicate isPast)
{
    int step = std::max(guess, 1);
    while (step < high - low && !isPast(low + step)) {
        low += step + 1;
        step *= 2;
    }
    return firstPast(low, std::min(low + step + 1, high), isPast);
}

} // namespace Corvale_Qt
