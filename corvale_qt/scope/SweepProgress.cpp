// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/SweepProgress_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

//! This many rows at once are taken for a sweep that the instrument sends.
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
    forgetShown();
}

int SweepProgress::rowsInserted(int start, int end, int lastRow, int pointsHint)
{
    const int count = end - start + 1;
    const int dropped = std::max(m_lastRowSeen + count - lastRow, 0);
    moveBack(dropped);
    m_lastRowSeen = lastRow;

    if (pointsHint > 0)
        m_length = pointsHint;
    else
        m_length = count >= kSmallestBatchSweep ? count : defaultLength;
    if (start <= m_shown.last)
        forgetShown();
    if (start == 1) // the first rows after a clear
        m_nextRow = 1;
    return dropped;
}

void SweepProgress::rowsRemoved(int start, int end)
{
    const int count = end - start + 1;
    m_lastRowSeen = std::max(m_lastRowSeen - count, 0);
    if (start == 1) {
        moveBack(count);
        return;
    }
    if (start <= m_shown.last)
        forgetShown();
    if (m_nextRow > start)
        m_nextRow = std::max(m_nextRow - count, start);
}

//! Follows the removal of the oldest rows. If the next sweep has lost rows, it begins with the oldest row left.
void SweepProgress::moveBack(int rows)
{
    m_nextRow = std::max(1, m_nextRow - rows);
    m_shown.first -= rows;
    m_shown.last -= rows;
    if (m_shown.last < 1)
        forgetShown();
}

void SweepProgress::advance()
{
    m_shown = next();
    m_nextRow += m_length;
}

void SweepProgress::skipToNewest(int lastRow)
{
    const int sweeps = waiting(lastRow);
    if (sweeps > mostWaiting)
        m_nextRow += (sweeps - 1) * m_length;
}

} // namespace Corvale_Qt
