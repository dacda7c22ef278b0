// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/plot/PixelColumns_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

// The first row in [low, high) for which isPast holds, or high; isPast turns from false to true once.
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

// The same, where the answer is expected about \a guess rows after low.
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

bool PixelColumns::Request::operator==(const Request &other) const
{
    return version == other.version && memory == other.memory && from == other.from
        && to == other.to && s1 == other.s1 && s2 == other.s2 && p1 == other.p1 && p2 == other.p2
        && left == other.left && right == other.right;
}

void PixelColumns::find(const ColumnSpans &x,
                        quint64 version,
                        int from,
                        int to,
                        const QwtScaleMap &map,
                        int left,
                        int right)
{
    const Request
        request{version, x.piece[0], from, to, map.s1(), map.s2(), map.p1(), map.p2(), left, right};
    if (version != 0 && request == m_request)
        return;
    m_request = request;
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
    const int inside = firstPast(from, to + 1, isInside);
    const int beyond = firstPast(inside, to + 1, isBeyond);
    m_end = std::min(beyond + 1, to + 1);

    int rows = 0;
    for (int row = std::max(inside - 1, from); row < m_end;) {
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
