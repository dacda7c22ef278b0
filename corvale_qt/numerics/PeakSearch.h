// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <algorithm>

namespace Corvale_Qt {

/*! The largest of some values and its index. */
template<typename T>
struct Peak
{
    int index = -1; //!< counted from 0; -1 if no value is above the floor
    T value = T(0); //!< the floor if no value is above it
};

/*! Returns the largest of \a count values above \a floor; of several equal ones, the first. A NaN is never a peak. */
template<typename T>
Peak<T> findPeak(const T *values, int count, T floor)
{
    Peak<T> peak{-1, floor};
    for (int i = 0; i < count; ++i) {
        if (values[i] > peak.value)
            peak = {i, values[i]};
    }
    return peak;
}

/*! A range of indexes, from the first to the last included. */
struct IndexRange
{
    int first = 0; //!< counted from 0
    int last = -1; //!< included; before first in an empty range

    //! Returns how many indexes the range has; 0 for the range that is made without arguments.
    int size() const { return last - first + 1; }
};

/*! Returns a window of 2 \a halfWidth + 1 of \a count bins around \a peak. Near an end of the profile the window is moved
    inside; if it is longer than the profile, it is the whole profile. */
inline IndexRange windowAround(int peak, int halfWidth, int count)
{
    const int w = std::min(std::max(halfWidth, 0), count); // 2 w + 1 must not overflow
    if (2 * w + 1 >= count)
        return {0, count - 1};
    if (peak - w < 0)
        return {0, 2 * w};
    if (peak + w > count - 1)
        return {count - 1 - 2 * w, count - 1};
    return {peak - w, peak + w};
}

} // namespace Corvale_Qt
