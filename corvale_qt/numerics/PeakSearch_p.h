// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

template<typename T>
struct Peak
{
    int index = -1; //!< counted from 0; -1 where no value is above the floor
    T value = T(0); //!< the floor where there is no peak
};

/*! The first of the largest values that lie above \a floor. A NaN is never a peak. */
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

/*! First and last index, both included. */
struct IndexRange
{
    int first = 0;
    int last = -1;

    int size() const { return last - first + 1; }
};

} // namespace Corvale_Qt
