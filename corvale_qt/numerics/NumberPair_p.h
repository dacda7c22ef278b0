// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <cstring>

namespace Corvale_Qt {

/*! Two numbers at once. Compilers turn these into the instructions of the processor, whatever it has; of four at once, not all
    processors have them. */
using NumberPair = double __attribute__((vector_size(16)));

inline NumberPair pairAt(const double *numbers)
{
    NumberPair pair;
    std::memcpy(&pair, numbers, sizeof pair);
    return pair;
}

inline void putPair(const NumberPair &pair, double *numbers)
{
    std::memcpy(numbers, &pair, sizeof pair);
}

} // namespace Corvale_Qt
