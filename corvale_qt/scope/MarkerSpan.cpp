// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/MarkerSpan_p.h"
#include "corvale_qt/scope/TimeGaps_p.h"

#include <cstring>

namespace Corvale_Qt {

namespace {

//! Compares the bits: a missing reading is like another.
bool areSame(const std::array<double, 4> &a, const std::array<double, 4> &b)
{
    return std::memcmp(a.data(), b.data(), sizeof a) == 0;
}

} // namespace

const MarkerStatistics &
MarkerSpan::of(const PlotDataReader &reader, int column, RowRange rows, double unitScale)
{
    std::array<double, 4> ends{sampleX(reader, rows.first), sampleX(reader, rows.last)};
    reader.read(column, rows.first, 1, &ends[2]);
    reader.read(column, rows.last, 1, &ends[3]);
    const bool isSame = m_isKnown && m_column == column && m_rows.first == rows.first
        && m_rows.last == rows.last && m_unitScale == unitScale && areSame(m_ends, ends);
    if (!isSame) {
        m_isKnown = true;
        m_isIntegralKnown = false;
        m_column = column;
        m_rows = rows;
        m_unitScale = unitScale;
        m_ends = ends;
        m_statistics = statisticsOfRows(reader, column, rows);
    }
    return m_statistics;
}

const SpanIntegral &MarkerSpan::integralOf(const PlotDataReader &reader,
                                           int column,
                                           RowRange rows,
                                           double unitScale,
                                           const TimeGaps &gaps)
{
    of(reader, column, rows, unitScale);
    if (m_isIntegralKnown && hasGaps(gaps))
        return m_integral;
    m_isIntegralKnown = true;
    m_gaps.resize(0); // keeps its memory
    gaps.forEach({rows.first + 1, rows.last}, [&](int row) {
        m_gaps.append(row - rows.first);
    });
    m_integral = SpanIntegral::ofRows(reader, column, rows, gaps);
    return m_integral;
}

//! Returns whether the integral was computed with these gaps: rows that come later may decide what a gap is.
bool MarkerSpan::hasGaps(const TimeGaps &gaps) const
{
    int found = 0;
    bool isSame = true;
    gaps.forEach({m_rows.first + 1, m_rows.last}, [&](int row) {
        isSame = isSame && found < m_gaps.size() && m_gaps[found] == row - m_rows.first;
        ++found;
    });
    return isSame && found == m_gaps.size();
}

void MarkerSpan::rowsInserted(int start)
{
    if (start <= m_rows.last)
        forget();
}

void MarkerSpan::rowsRemoved(int start, int end)
{
    if (start == 1 && end < m_rows.first) {
        m_rows.first -= end;
        m_rows.last -= end;
    } else {
        forget();
    }
}

void MarkerSpan::cellsChanged(int top, int bottom)
{
    if (bottom >= m_rows.first && top <= m_rows.last)
        forget();
}

} // namespace Corvale_Qt
