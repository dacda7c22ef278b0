// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <ctime>

//! Returns the processor time of this thread in seconds, so that neither other threads nor other programs count.
inline double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}
