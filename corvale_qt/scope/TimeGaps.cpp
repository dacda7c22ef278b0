// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/TimeGaps_p.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr int kGroup = 16; // rows that are judged by one median
constexpr int kBeside = 8; // rows on either side that enter it
constexpr int kFewest = 4; // intervals; fewer say nothing of what is usual

//! Returns the median of the intervals between \a count times, without those of 0; 0 if there are too few.
double usualInterval(const double *x, int count)
{
    double intervals[kGroup + 2 * kBeside];
    int found = 0;
    for (int i = 1; i < count; ++i) {
        const double interval = std::abs(x[i] - x[i - 1]);
        if (std::isfinite(interval) && interval > 0.0)
            intervals[found++] = interval;
    }
    if (found < kFewest)
        return 0.0;
    double *const middle = intervals + (found - 1) / 2;
    std::nth_element(intervals, middle, intervals + found);
    return *middle;
}

} // namespace

void TimeGaps::setIntervals(double intervals)
{
    m_intervals = intervals;
    restart();
}

void TimeGaps::restart()
{
    m_gaps.clear();
    m_dropped = 0;
    m_judged = 0;
}

void TimeGaps::rowsInserted(int start)
{
    if (start + m_dropped <= m_judged)
        restart();
}

void TimeGaps::rowsRemoved(int start, int end)
{
    if (start != 1) {
        restart();
        return;
    }
    m_dropped += end;
    // The interval before the row that is the oldest now has gone as well.
    while (!m_gaps.empty() && m_gaps.front() <= m_dropped + 1)
        m_gaps.pop_front();
}

void TimeGaps::update(const PlotDataReader &reader, int lastRow)
{
    if (!areSought())
        return;
    if (lastRow + m_dropped < m_judged)
        restart();
    while (!m_gaps.empty() && m_gaps.back() > m_judged)
        m_gaps.pop_back();
    // Row 1 has no row before it.
    int row = int(std::max(m_judged - m_dropped, 1LL)) + 1;
    while (row <= lastRow) {
        // Groups end at fixed rows, whenever they are looked at.
        const long long wholeGroup = ((row + m_dropped - 1) / kGroup + 1) * kGroup;
        const int end = int(std::min<long long>(wholeGroup - m_dropped, lastRow));
        judge(reader, {row, end}, lastRow);
        if (end + m_dropped == wholeGroup && end + kBeside <= lastRow)
            m_judged = wholeGroup;
        row = end + 1;
    }
}

void TimeGaps::judge(const PlotDataReader &reader, RowRange group, int lastRow)
{
    double x[kGroup + 2 * kBeside + 1];
    const int first = std::max(group.first - 1 - kBeside, 1);
    const int last = std::min(group.last + kBeside, lastRow);
    reader.read(0, first, last - first + 1, x);
    const double longest = m_intervals * usualInterval(x, last - first + 1);
    if (!(longest > 0.0))
        return;
    for (int row = group.first; row <= group.last; ++row) {
        if (std::abs(x[row - first] - x[row - first - 1]) > longest)
            m_gaps.push_back(row + m_dropped);
    }
}

bool TimeGaps::isBefore(int row) const
{
    return std::binary_search(m_gaps.begin(), m_gaps.end(), row + m_dropped);
}

} // namespace Corvale_Qt
