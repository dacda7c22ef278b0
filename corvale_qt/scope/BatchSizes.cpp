// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/BatchSizes_p.h"

#include <algorithm>

namespace Corvale_Qt {

void BatchSizes::add(int rows)
{
    if (rows < smallest)
        return;
    m_sizes[size_t(m_count % kept)] = rows;
    // Stays above the number kept, however many come.
    m_count = m_count + 1 < 2 * kept ? m_count + 1 : kept;
}

int BatchSizes::median() const
{
    const int count = std::min(m_count, kept);
    if (count == 0)
        return 0;
    std::array<int, kept> sorted = m_sizes;
    std::sort(sorted.begin(), sorted.begin() + count);
    const int lower = sorted[size_t((count - 1) / 2)];
    const int upper = sorted[size_t(count / 2)];
    return lower + (upper - lower) / 2;
}

} // namespace Corvale_Qt
