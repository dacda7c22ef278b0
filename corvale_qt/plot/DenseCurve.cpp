// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/SeriesSource_p.h"
#include "corvale_qt/plot/DenseCurve_p.h"
#include "corvale_qt/plot/PixelRuns_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

ColumnReadings ColumnReadings::of(const SeriesSpans &samples, int first, int end)
{
    const RingSpans &y = samples.storedY();
    const NumberRange range = storedRange(y, first, end);
    const Kind kind = range.allFinite ? All : range.least > range.greatest ? None : Some;
    return {y.stored(first), range.least, range.greatest, y.stored(end - 1), kind};
}

void DenseCurve::add(PixelRuns &runs,
                     int column,
                     const ColumnReadings &readings,
                     int first,
                     int end) const
{
    if (readings.kind == ColumnReadings::None) {
        runs.gap();
        return;
    }
    const double ends[] = {m_samples.shown(readings.least), m_samples.shown(readings.greatest)};
    // As long as all is finite, each step from the stored number to the pixel keeps the order or reverses it.
    if (readings.kind != ColumnReadings::All || !std::isfinite(ends[0])
        || !std::isfinite(ends[1])) {
        addOneByOne(runs, column, first, end);
        return;
    }
    const auto pixels = std::minmax({pixelOf(m_yMap, ends[0]), pixelOf(m_yMap, ends[1])});
    runs.addColumn(column,
                   pixelOf(m_yMap, m_samples.shown(readings.first)),
                   pixels.first,
                   pixels.second,
                   pixelOf(m_yMap, m_samples.shown(readings.last)));
}

void DenseCurve::add(PixelRuns &runs, int column, LineBreaks breaks, int first, int end) const
{
    for (int row = first, count = 0; row < end; row += count) {
        if (breaks.isAt(row - first))
            runs.gap();
        count = breaks.lengthOfLine(row - first, end - row);
        add(runs, column, ColumnReadings::of(m_samples, row, row + count), row, row + count);
    }
}

void DenseCurve::addOneByOne(PixelRuns &runs, int column, int first, int end) const
{
    for (int i = first; i < end; ++i) {
        const double y = m_samples.y(i);
        if (std::isfinite(y))
            runs.addPoint(column, pixelOf(m_yMap, y));
        else
            runs.gap();
    }
}

} // namespace Corvale_Qt
