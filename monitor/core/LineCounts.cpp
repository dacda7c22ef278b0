// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LineCounts.h"

namespace Monitor {

LineCounts &LineCounts::operator+=(const LineCounts &other)
{
    lines += other.lines;
    readings += other.readings;
    for (std::size_t i = 0; i < refused.size(); ++i)
        refused[i] += other.refused[i];
    return *this;
}

} // namespace Monitor
