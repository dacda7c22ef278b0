// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/SweepProgress_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

//! So many rows at once are taken for a sweep of the instrument's own.
constexpr int kSmallestBatchSweep = 6;

} // namespace

void SweepProgress::setLengthHint(int points)
{
    if (points > 0)
        m_length = points;
}

void SweepProgress::restart(int lastRow)
{
    m_nextRow = 1;
    m_lastRowSeen = std::max(lastRow, 0);
}

void SweepProgress::rowsInserted(int start, int end, int lastRow, int pointsHint)
{
    const int count = end - start + 1;
    const int dropped = m_lastRowSeen + count - lastRow;
    // Where rows were dropped that no sweep has shown, the next one begins with the oldest that is left.
    if (dropped > 0)
        m_nextRow = std::max(1, m_nextRow - dropped);
    m_lastRowSeen = lastRow;

    if (pointsHint > 0)
        m_length = pointsHint;
    else
        m_length = count >= kSmallestBatchSweep ? count : defaultLength;
    if (start == 1) // the first after a clear
        m_nextRow = 1;
}

void SweepProgress::rewind()
{
    m_nextRow = std::max(1, m_nextRow - m_length);
}

} // namespace Corvale_Qt
