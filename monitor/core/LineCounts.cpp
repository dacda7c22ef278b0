// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/LineCounts.h"

#include <numeric>

namespace Monitor {

qint64 LineCounts::bad() const
{
    return std::accumulate(refused.begin(), refused.end(), qint64(0));
}

LineCounts &LineCounts::operator+=(const LineCounts &other)
{
    lines += other.lines;
    readings += other.readings;
    for (std::size_t i = 0; i < refused.size(); ++i)
        refused[i] += other.refused[i];
    return *this;
}

} // namespace Monitor
