// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

/*! The largest of some values and its index. */
template<typename T>
struct Peak
{
    int index = -1; //!< counted from 0; -1 if no value is above the floor
    T value = T(0); //!< the floor if no value is above it
};

/*! Returns the largest value above \a floor; of several equal ones, the first. A NaN is never a peak. */
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
    int first = 0;
    int last = -1;

    int size() const { return last - first + 1; }
};

} // namespace Corvale_Qt
