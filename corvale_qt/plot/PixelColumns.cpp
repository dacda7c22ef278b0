// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/plot/PixelColumns_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

//! Returns the first row in [low, high) for which isPast is true, or high; isPast turns from false to true once.
template<typename Predicate>
int firstPast(int low, int high, Predicate isPast)
{
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (isPast(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

//! Returns what firstPast() returns, but faster if the row is about \a guess rows after low.
template<typename Predicate>
int firstPastNear(int low, int high, int guess, Predicate isPast)
{
    int step = std::max(guess, 1);
    while (step < high - low && !isPast(low + step)) {
        low += step + 1;
        step *= 2;
    }
    return firstPast(low, std::min(low + step + 1, high), isPast);
}

} // namespace

void PixelColumns::find(const ColumnSpans &x,
                        quint64 version,
                        const QwtScaleMap &map,
                        int left,
                        int right)
{
    const SampleXKey key(x, version, map);
    if (key.matches(m_key) && left == m_left && right == m_right)
        return;
    m_key = key;
    m_left = left;
    m_right = right;
    m_edges.resize(0);

    const bool rightwards = (map.p2() >= map.p1()) == (map.s2() >= map.s1());
    const auto column = [&](int row) {
        return pixelOf(map, x.value(row));
    };
    const auto isInside = [&](int row) {
        return rightwards ? column(row) >= left : column(row) <= right;
    };
    const auto isBeyond = [&](int row) {
        return rightwards ? column(row) > right : column(row) < left;
    };
    const int inside = firstPast(0, x.count(), isInside);
    const int beyond = firstPast(inside, x.count(), isBeyond);
    m_end = std::min(beyond + 1, x.count());

    int rows = 0;
    for (int row = std::max(inside - 1, 0); row < m_end;) {
        const int here = column(row);
        m_edges.append({here, row});
        const int next = firstPastNear(row + 1, m_end, rows, [&](int r) {
            return column(r) != here;
        });
        rows = next - row;
        row = next;
    }
}

} // namespace Corvale_Qt
