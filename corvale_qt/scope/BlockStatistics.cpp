// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockOfReadings_p.h"
#include "corvale_qt/scope/BlockStatistics_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"

#include <algorithm>
#include <limits>

namespace Corvale_Qt {

namespace {

int toInt(qint64 number)
{
    return int(std::min<qint64>(number, std::numeric_limits<int>::max()));
}

} // namespace

BlockStatistics::BlockStatistics(const HistorySpan &span)
    : m_span(span)
{
}

void BlockStatistics::add(const MarkerStatistics &rows, double lastX)
{
    m_span.rows += rows.count() + rows.missing();
    m_span.last = lastX;
    addBlock({rows.minimum(), rows.maximum(), rows.mean(), rows.count()}, m_span.readings);
}

void BlockStatistics::writeTo(ScopeMarkerStatistics &result) const
{
    const RVXPlotHistory::Block &readings = m_span.readings;
    result.count = toInt(readings.count);
    result.missing = toInt(missing());
    result.blocksBegin = m_span.first;
    result.blocksEnd = m_span.last;
    if (readings.count == 0)
        return;
    result.sum = readings.mean * double(readings.count);
    result.mean = readings.mean;
    result.minimum = readings.least;
    result.maximum = readings.greatest;
}

} // namespace Corvale_Qt
