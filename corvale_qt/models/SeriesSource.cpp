// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/ColumnSeries_p.h"
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/models/SeriesSource_p.h"
#include "corvale_qt/numerics/NumberPair_p.h"

#include <algorithm>
#include <cmath>
#include <typeinfo>
#include <utility>

namespace Corvale_Qt {

SeriesSource SeriesSource::of(const QwtSeriesData<QPointF> *series)
{
    // A subclass may override sample(), so only the exact classes are known.
    if (!series)
        return SeriesSource();
    if (typeid(*series) == typeid(ColumnSeries))
        return static_cast<const ColumnSeries &>(*series).source();
    if (typeid(*series) != typeid(RVXSeriesData))
        return SeriesSource();
    const auto &known = static_cast<const RVXSeriesData &>(*series);
    return {PlotDataReader::ofBulk(known.m_bulk), known.m_column, known.m_startRow, known.m_scale};
}

SeriesSpans::SeriesSpans(SeriesSource source, int first, int count)
    : m_source(std::move(source))
{
    const PlotDataReader &reader = m_source.reader;
    const int row = m_source.startRow + first;
    m_found = reader.spans(0, row, count, m_x) && reader.spans(m_source.column, row, count, m_y);
}

bool SeriesSpans::rise() const
{
    return m_source.reader.xRises() && std::isfinite(x(0)) && std::isfinite(x(count() - 1));
}

void SeriesSpans::values(int first, int count, double *out) const
{
    const int inFirst = std::clamp(m_y.size[0] - first, 0, count);
    if (inFirst > 0)
        convert(m_y.piece[0] + first, inFirst, out);
    if (inFirst < count)
        convert(m_y.piece[1] + (first + inFirst - m_y.size[0]), count - inFirst, out + inFirst);
}

//! Writes what shown() returns for each of the stored numbers.
void SeriesSpans::convert(const double *stored, int count, double *out) const
{
    int i = 0;
    if (m_source.scale == 1.0) {
        const NumberPair factor{m_y.factor, m_y.factor};
        const NumberPair zero{m_y.zero, m_y.zero};
        for (; i + 2 <= count; i += 2)
            writePair(out + i, factor * pairAt(stored + i) - zero);
    }
    for (; i < count; ++i)
        out[i] = shown(stored[i]);
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
    const NumberRange range = storedRange(samples.storedY(), 0, count);
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
