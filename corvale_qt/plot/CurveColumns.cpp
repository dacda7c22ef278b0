// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SeriesSource_p.h"
#include "corvale_qt/plot/ColumnRows_p.h"
#include "corvale_qt/plot/CurveColumns_p.h"
#include "corvale_qt/plot/LineBreaks_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

namespace {

// Columns further away than any picture is wide; an int holds twice as many.
constexpr qint64 farthestColumn = 1 << 30;

} // namespace

bool CurveColumns::canFollow(const SeriesSpans &samples)
{
    return samples.storedY().content != 0;
}

bool CurveColumns::update(const SeriesSpans &samples, const ColumnRows &rows)
{
    const RingSpans &y = samples.storedY();
    const qint64 offset = y.number - samples.storedX().number;
    const bool isSame =
        m_content == y.content && m_offset == offset && m_readings.size() == rows.places();
    m_content = y.content;
    m_offset = offset;
    m_readings.resize(rows.places());
    const quint64 followed = std::exchange(m_stamp, rows.stamp());
    const auto read = [&](const ColumnRows::Column &column) {
        m_readings[column.place] =
            ColumnReadings::of(samples, rows.sampleOf(column.first), rows.sampleOf(column.end));
    };
    if (isSame && followed + 1 == rows.stamp()) {
        for (const int index : rows.changed())
            read(rows.columns()[index]);
        return true;
    }
    for (const ColumnRows::Column &column : rows.columns()) {
        if (!isSame || column.stamp > followed)
            read(column);
    }
    return isSame;
}

void CurveColumns::addTo(PixelRuns &runs,
                         const SeriesSpans &samples,
                         const ColumnRows &rows,
                         const ColumnSpan &span,
                         const Look &look) const
{
    const QVector<ColumnRows::Column> &columns = rows.columns();
    const auto inside = std::lower_bound(columns.begin(),
                                         columns.end(),
                                         span.first,
                                         [](const auto &column, qint64 number) {
                                             return column.number < number;
                                         });
    const DenseCurve curve(samples, look.yMap);
    auto column = inside == columns.begin() ? inside : inside - 1;
    for (; column != columns.end(); ++column) {
        const int first = rows.sampleOf(column->first);
        const int end = rows.sampleOf(column->end);
        const int x =
            int(std::clamp(column->number - look.columnAtZero, -farthestColumn, farthestColumn));
        if (column->breaks == 0)
            curve.add(runs, x, m_readings[column->place], first, end);
        else
            curve.add(runs, x, LineBreaks(&look.breaks, first), first, end);
        if (column->number > span.last)
            return;
    }
}

} // namespace Corvale_Qt
