// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <cstring>

namespace Corvale_Qt {

/*! Two doubles that the processor handles with one instruction, whatever else it has. Each lane is computed as a double is; a comparison
    with a NaN is false in its lane alone. */
using NumberPair = double __attribute__((vector_size(16)));

inline NumberPair pairAt(const double *numbers)
{
    NumberPair pair;
    std::memcpy(&pair, numbers, sizeof pair);
    return pair;
}

inline void writePair(double *numbers, NumberPair pair)
{
    std::memcpy(numbers, &pair, sizeof pair);
}

inline NumberPair lesser(NumberPair a, NumberPair b)
{
    return a < b ? a : b;
}

inline NumberPair greater(NumberPair a, NumberPair b)
{
    return a > b ? a : b;
}

} // namespace Corvale_Qt
