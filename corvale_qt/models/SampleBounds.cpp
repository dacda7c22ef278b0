// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockOfReadings_p.h"
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/NumberPair_p.h"
#include "corvale_qt/models/SampleBounds_p.h"
#include "corvale_qt/models/SeriesSource_p.h"

#include <QDebug>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Corvale_Qt {

namespace {

//! Ranges of several pairs side by side, so that the processor does not wait for one comparison to start the next.
template<int pairs>
struct Lanes
{
    NumberPair least[pairs]{};
    NumberPair greatest[pairs]{};
    // Not finite if one of the numbers is not. A sum of enormous numbers may overflow as well, which only costs time.
    NumberPair sum[pairs]{};

    Lanes()
    {
        std::fill_n(least, pairs, NumberPair{kInfinity, kInfinity});
        std::fill_n(greatest, pairs, NumberPair{-kInfinity, -kInfinity});
        std::fill_n(sum, pairs, NumberPair{0.0, 0.0});
    }

    void add(int lane, NumberPair value)
    {
        least[lane] = lesser(value, least[lane]);
        greatest[lane] = greater(value, greatest[lane]);
        sum[lane] += value;
    }

    ValueRange range() const
    {
        NumberPair low = least[0];
        NumberPair high = greatest[0];
        NumberPair total = sum[0];
        for (int lane = 1; lane < pairs; ++lane) {
            low = lesser(low, least[lane]);
            high = greater(high, greatest[lane]);
            total += sum[lane];
        }
        return {std::min(low[0], low[1]),
                std::max(high[0], high[1]),
                std::isfinite(total[0] + total[1])};
    }
};

template<int pairs>
ValueRange rangeByLanes(const double *values, int count)
{
    // One page ahead: the processor prefetches by itself, but not across the end of a page.
    constexpr int prefetched = 512;
    Lanes<pairs> lanes;
    int i = 0;
    for (; i + 2 * pairs <= count; i += 2 * pairs) {
        if (pairs > 1)
            __builtin_prefetch(values + i + prefetched);
        for (int lane = 0; lane < pairs; ++lane)
            lanes.add(lane, pairAt(values + i + std::ptrdiff_t(2) * lane));
    }
    for (; i < count; ++i)
        lanes.add(0, NumberPair{values[i], values[i]});
    return lanes.range();
}

ValueRange rangeOfPiece(const double *values, int count)
{
    // Reading fewer numbers than this takes less time than combining four lanes.
    constexpr int few = 24;
    return count < few ? rangeByLanes<1>(values, count) : rangeByLanes<4>(values, count);
}

ValueRange finiteRangeOneByOne(const RingSpans &spans, int first, int last)
{
    ValueRange range{kInfinity, -kInfinity, false};
    for (int i = first; i < last; ++i) {
        const double value = spans.stored(i);
        if (!std::isfinite(value))
            continue;
        range.least = std::min(range.least, value);
        range.greatest = std::max(range.greatest, value);
    }
    return range;
}

} // namespace

QDebug operator<<(QDebug debug, const ValueRange &range)
{
    const QDebugStateSaver saver(debug);
    return debug.nospace() << "ValueRange(" << range.least << " to " << range.greatest
                           << (range.allFinite ? ")" : ", some not finite)");
}

ValueRange storedRange(const RingSpans &spans, int first, int last)
{
    return spans.blocks ? spans.blocks->range(spans, first, last) : readRange(spans, first, last);
}

ValueRange readRange(const RingSpans &spans, int first, int last)
{
    ValueRange range{kInfinity, -kInfinity, true};
    if (first < spans.size[0])
        range = rangeOfPiece(spans.piece[0] + first, std::min(last, spans.size[0]) - first);
    if (last > spans.size[0]) {
        const int from = std::max(first - spans.size[0], 0);
        range.unite(rangeOfPiece(spans.piece[1] + from, last - spans.size[0] - from));
    }
    return range.allFinite ? range : finiteRangeOneByOne(spans, first, last);
}

SampleBounds::SampleBounds(const QPointF &first)
    : m_left(std::isfinite(first.x()) ? first.x() : 0.0)
    , m_right(m_left)
    , m_top(std::isfinite(first.y()) ? first.y() : 0.0)
    , m_bottom(m_top)
{
}

void SampleBounds::add(double x, double y)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return;
    m_left = std::min(m_left, x);
    m_right = std::max(m_right, x);
    m_top = std::min(m_top, y);
    m_bottom = std::max(m_bottom, y);
}

bool SampleBounds::add(const SeriesSpans &samples)
{
    if (!samples.areFound() || !samples.rise())
        return false;
    const int count = samples.count();
    const ValueRange range = storedRange(samples.storedY(), 0, count);
    const double ends[] = {samples.shown(range.least), samples.shown(range.greatest)};
    // As long as nothing overflows, each step of the conversion keeps the order of the numbers or reverses it.
    if (!range.allFinite || !std::isfinite(ends[0]) || !std::isfinite(ends[1]))
        return false;
    add(samples.x(0), ends[0]);
    add(samples.x(count - 1), ends[1]);
    return true;
}

QRectF SampleBounds::rectangle() const
{
    return QRectF(m_left, m_top, m_right - m_left, m_bottom - m_top);
}

QRectF boundsOf(const QwtSeriesData<QPointF> &series, int count)
{
    SampleBounds bounds(series.sample(0));
    if (!bounds.add(SeriesSpans(SeriesSource::of(&series), 0, count)))
        forEachPoint(series, 0, count, [&bounds](int, double x, double y) {
            bounds.add(x, y);
        });
    return bounds.rectangle();
}

} // namespace Corvale_Qt
