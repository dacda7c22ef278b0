// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/SampleRows_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

constexpr int kChunk = 1024;

//! Returns the first row whose x meets a condition, if all rows after it meet the condition, too.
template<typename Condition>
int bisect(const PlotDataReader &reader, RowRange rows, Condition condition)
{
    // One read through proxies costs as much as several steps in memory.
    RingSpans memory;
    const bool isInMemory = reader.spans(0, rows.first, rows.size(), memory);
    const auto x = [&](int row) {
        return isInMemory ? memory.value(row - rows.first) : sampleX(reader, row);
    };
    int first = rows.first;
    int count = rows.size();
    while (count > 0) {
        const int half = count / 2;
        if (condition(x(first + half))) {
            count = half;
        } else {
            first += half + 1;
            count -= half + 1;
        }
    }
    return first;
}

//! Returns the first row whose x meets a condition, or one past the last row.
template<typename Condition>
int scanForward(const PlotDataReader &reader, RowRange rows, Condition condition)
{
    double x[kChunk];
    for (int row = rows.first; row <= rows.last; row += kChunk) {
        const int count = std::min(kChunk, rows.last - row + 1);
        reader.read(0, row, count, x);
        const double *hit = std::find_if(x, x + count, condition);
        if (hit != x + count)
            return row + int(hit - x);
    }
    return rows.last + 1;
}

//! Returns the last row whose x meets a condition, or one before the first row.
template<typename Condition>
int scanBackward(const PlotDataReader &reader, RowRange rows, Condition condition)
{
    double x[kChunk];
    for (int end = rows.last + 1; end > rows.first; end -= kChunk) {
        const int count = std::min(kChunk, end - rows.first);
        reader.read(0, end - count, count, x);
        for (int i = count - 1; i >= 0; --i) {
            if (condition(x[i]))
                return end - count + i;
        }
    }
    return rows.first - 1;
}

} // namespace

double sampleX(const PlotDataReader &reader, int row)
{
    double x = 0.0;
    reader.read(0, row, 1, &x);
    return x;
}

RowRange rowsAround(const PlotDataReader &reader, RowRange all, double left, double right)
{
    const auto isBelow = [left](double x) {
        return x < left;
    };
    const auto isBeyond = [right](double x) {
        return x > right;
    };
    const bool rises = reader.xRises();
    RowRange found;
    found.first = rises ? bisect(reader,
                                 all,
                                 [&](double x) {
                                     return !isBelow(x);
                                 })
            - 1
                        : scanBackward(reader, all, isBelow);
    found.first = std::max(found.first, all.first);
    const RowRange after{found.first + 1, all.last};
    found.last = rises ? bisect(reader, after, isBeyond) : scanForward(reader, after, isBeyond);
    found.last = std::min(found.last, all.last);
    return found;
}

int firstRowFrom(const PlotDataReader &reader, RowRange rows, double x)
{
    const auto isReached = [x](double stamp) {
        return stamp >= x;
    };
    const int row =
        reader.xRises() ? bisect(reader, rows, isReached) : scanForward(reader, rows, isReached);
    return row <= rows.last ? row : -1;
}

int rowAt(const PlotDataReader &reader, RowRange rows, double x)
{
    if (reader.xRises()) {
        const int row = firstRowFrom(reader, rows, x);
        return row > 0 && sampleX(reader, row) == x ? row : -1;
    }
    const int row = scanForward(reader, rows, [x](double stamp) {
        return stamp == x;
    });
    return row <= rows.last ? row : -1;
}

int nearestRow(const PlotDataReader &reader, RowRange rows, double x)
{
    if (reader.xRises()) { // only its neighbours can be the nearest
        const int after = firstRowFrom(reader, rows, x);
        const int last = after < 0 ? rows.last : after;
        rows = {std::max(last - 1, rows.first), last};
    }
    int nearest = -1;
    double least = std::numeric_limits<double>::infinity();
    double stamps[kChunk];
    for (int row = rows.first; row <= rows.last; row += kChunk) {
        const int count = std::min(kChunk, rows.last - row + 1);
        reader.read(0, row, count, stamps);
        for (int i = 0; i < count; ++i) {
            const double distance = std::abs(stamps[i] - x);
            if (distance < least) {
                least = distance;
                nearest = row + i;
            }
        }
    }
    return nearest;
}

double typicalInterval(const PlotDataReader &reader, int lastRow)
{
    constexpr int looked = 65;
    double x[looked];
    const int count = std::min(looked, lastRow);
    reader.read(0, lastRow - count + 1, count, x);
    int intervals = 0;
    for (int i = 1; i < count; ++i) {
        const double interval = std::abs(x[i] - x[i - 1]);
        if (std::isfinite(interval))
            x[intervals++] = interval;
    }
    if (intervals == 0)
        return 0.0;
    double *const middle = x + intervals / 2;
    std::nth_element(x, middle, x + intervals);
    return *middle;
}

} // namespace Corvale_Qt
