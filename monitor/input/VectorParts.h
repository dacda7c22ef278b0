// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*! \file
    What the functions have in common that read many characters at once, on processors that can do so. Each has a plain counterpart with the
    same results. */

#if defined(__x86_64__)
#include <immintrin.h>

#define CORVALE_MONITOR_HAS_VECTORS 1
//! Stands before a function that only runs where hasVectors() returns true.
#define CORVALE_MONITOR_VECTORS [[gnu::target("avx2,bmi,popcnt")]]

namespace Monitor {

//! Returns whether this processor has the instructions of those functions.
inline bool hasVectors()
{
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi")
        && __builtin_cpu_supports("popcnt");
}

} // namespace Monitor

#else
#define CORVALE_MONITOR_HAS_VECTORS 0
#endif
