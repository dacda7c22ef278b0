// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/ColumnSeries_p.h"
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/models/SeriesSource_p.h"

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
    for (int i = 0; i < inFirst; ++i)
        out[i] = shown(m_y.piece[0][first + i]);
    const int skipped = first - m_y.size[0];
    for (int i = inFirst; i < count; ++i)
        out[i] = shown(m_y.piece[1][skipped + i]);
}

} // namespace Corvale_Qt
