// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/PlotColumns_p.h"
#include "corvale_qt/models/SampleBounds_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// Four lanes, so that the processor need not wait for one comparison before it begins the next.
struct Lanes
{
    double least[4] = {infinity, infinity, infinity, infinity};
    double greatest[4] = {-infinity, -infinity, -infinity, -infinity};
    // Any number times 0 is 0, but for infinities and NaN.
    double notFinite[4] = {0.0, 0.0, 0.0, 0.0};

    void add(int lane, double value)
    {
        least[lane] = value < least[lane] ? value : least[lane];
        greatest[lane] = value > greatest[lane] ? value : greatest[lane];
        notFinite[lane] += value * 0.0;
    }
};

void addPiece(Lanes &lanes, const double *values, int count)
{
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        lanes.add(0, values[i]);
        lanes.add(1, values[i + 1]);
        lanes.add(2, values[i + 2]);
        lanes.add(3, values[i + 3]);
    }
    for (; i < count; ++i)
        lanes.add(0, values[i]);
}

ValueRange finiteRangeOneByOne(const ColumnSpans &spans, int first, int last)
{
    ValueRange range{infinity, -infinity, false};
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

ValueRange storedRange(const ColumnSpans &spans, int first, int last)
{
    Lanes lanes;
    if (first < spans.size[0])
        addPiece(lanes, spans.piece[0] + first, std::min(last, spans.size[0]) - first);
    if (last > spans.size[0]) {
        const int from = std::max(first - spans.size[0], 0);
        addPiece(lanes, spans.piece[1] + from, last - spans.size[0] - from);
    }
    const double notFinite =
        (lanes.notFinite[0] + lanes.notFinite[1]) + (lanes.notFinite[2] + lanes.notFinite[3]);
    if (notFinite != 0.0)
        return finiteRangeOneByOne(spans, first, last);
    return {*std::min_element(lanes.least, lanes.least + 4),
            *std::max_element(lanes.greatest, lanes.greatest + 4),
            true};
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

bool SampleBounds::addSpans(const SeriesColumns &columns, int count)
{
    ColumnSpans x;
    ColumnSpans y;
    if (!columns.columns->xRises() || !columns.columns->spans(0, columns.startRow, count, x)
        || !columns.columns->spans(columns.column, columns.startRow, count, y))
        return false;
    const ValueRange range = storedRange(y, 0, count);
    const auto shown = [&](double stored) {
        return (y.factor * stored - y.zero) / columns.scale;
    };
    const double ends[] = {shown(range.least), shown(range.greatest)};
    // Each step from the stored number to the shown one keeps the order or turns it, while nothing overflows.
    if (!range.allFinite || !std::isfinite(ends[0]) || !std::isfinite(ends[1])
        || !std::isfinite(x.value(0)) || !std::isfinite(x.value(count - 1)))
        return false;
    add(x.value(0), ends[0]);
    add(x.value(count - 1), ends[1]);
    return true;
}

QRectF SampleBounds::rectangle() const
{
    return QRectF(m_left, m_top, m_right - m_left, m_bottom - m_top);
}

} // namespace Corvale_Qt
