// SPDX-License-Identifier: LGPL-2.1-or-later
// What the markers of a scope read of the samples, and of the blocks of older ones, between them.
#include "corvale_qt/scope/BlockStatistics_p.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeMarkerItem_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/ScopeMarkers_p.h"
#include "corvale_qt/scope/SpanIntegral_p.h"
#include "corvale_qt/scope/TimeGaps_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

//! Returns whether a marker stands on a sample that is still where the last plot found it.
bool ScopeMarkers::reads(int index) const
{
    const Data &data = m_data[size_t(index)];
    return isAttached(index) && data.row > 0 && data.column > 0
        && sampleX(m_reader, data.row) == data.x;
}

//! Returns the rows from one marker to the other, counted as those that are plotted.
RowRange ScopeMarkers::spanRows() const
{
    const auto rows = std::minmax(m_data[0].row, m_data[1].row);
    return {rows.first, rows.second};
}

//! Returns the statistics of the second marker's channel from one marker to the other.
const MarkerStatistics &ScopeMarkers::span() const
{
    const int channel = m_data[1].column;
    return m_span.of(m_reader, channel, spanRows(), m_model.unitScale(channel));
}

//! Returns the integral of the second marker's channel from one marker to the other.
const SpanIntegral &ScopeMarkers::spanIntegral() const
{
    static const TimeGaps none;
    return m_span.integralOf(m_reader,
                             m_data[1].column,
                             spanRows(),
                             m_model.unitScale(m_data[1].column),
                             m_gaps ? *m_gaps : none);
}

//! Returns the history that the last plot read. Null if it has gone since: hosts may ask at any time.
const RVXPlotHistory *ScopeMarkers::history() const
{
    return m_history ? RVXPlotHistory::of(m_model.plot()) : nullptr;
}

//! Returns whether the blocks of a history tell the readings from one marker to the other, or some of them.
bool ScopeMarkers::spansBlocks() const
{
    const auto stands = [this](int index) {
        return isAttached(index) && (reads(index) || isOnBlock(m_data[size_t(index)]));
    };
    return (isOnBlock(m_data[0]) || isOnBlock(m_data[1])) && stands(0) && stands(1) && history();
}

//! Returns the readings of the second marker's channel from one marker to the other, as far as blocks and rows tell them.
BlockStatistics ScopeMarkers::blockStatistics() const
{
    const auto [left, right] = std::minmax(m_data[0].x, m_data[1].x);
    const int column = m_data[1].column;
    const Data *const onRow = reads(0) ? m_data.data() : reads(1) ? &m_data[1] : nullptr;
    BlockStatistics result(
        HistorySpan::between(*history(), column, left, onRow ? sampleX(m_reader, 1) : right));
    if (onRow)
        result.add(m_span.of(m_reader, column, {1, onRow->row}, m_model.unitScale(column)),
                   onRow->x);
    return result;
}

//! Returns whether the readings at both markers have the same unit, so that there is a difference.
bool ScopeMarkers::isComparable() const
{
    const int a = m_data[0].column;
    const int b = m_data[1].column;
    return a == b || m_model.unitName(a) == m_model.unitName(b);
}

ScopeMarkerStatistics ScopeMarkers::statistics() const
{
    ScopeMarkerStatistics result;
    ScopeMarkerStatistics::Marker *const markers[count] = {&result.first, &result.second};
    for (int i = 0; i < count; ++i) {
        const Data &data = m_data[size_t(i)];
        if (reads(i))
            *markers[i] = {true, modelRow(data), data.column, data.x, data.value};
        else if (isAttached(i) && isOnBlock(data) && history())
            *markers[i] = {true, 0, data.column, data.x, std::nan("")};
    }
    if (!result.hasSpan())
        return result;
    result.period = std::abs(result.second.time - result.first.time);
    if (result.period > 0.0)
        result.frequency = 1.0 / result.period;
    if (isComparable())
        result.difference = result.second.reading - result.first.reading;
    if (spansBlocks()) {
        blockStatistics().writeTo(result);
        return result;
    }
    span().writeTo(result);
    spanIntegral().writeTo(result);
    return result;
}

//! Labels the second marker with what lies between both. Returns false if there is nothing to say of it.
bool ScopeMarkers::describeSpan(const std::pair<double, double> &xRange)
{
    const Data &a = m_data[0];
    const Data &b = m_data[1];
    if (spansBlocks()) {
        const double resolution = resolutionOf(xRange);
        setMarkerLabel(
            *item(1),
            labelText(b, resolution)
                + blocksText(m_model, b.column, blockStatistics(), std::abs(a.x - b.x), resolution),
            m_selected == 1);
        keepLabelsApart(*item(0), *item(1), xRange.second - xRange.first);
        return true;
    }
    if (!isAttached(0) || !isAttached(1) || a.row < 1 || b.row < 1 || b.column < 1)
        return false;
    const double period = std::abs(a.x - b.x);
    const MarkedSample sample = marked(b, resolutionOf(xRange));
    const MarkerStatistics &statistics = span();
    QString text = spanText(m_model, sample, period, statistics);
    if (m_isDetailed)
        text += detailText(m_model,
                           b.column,
                           isComparable() ? b.value - a.value : std::nan(""),
                           statistics);
    if (m_isDetailed || (m_gaps && m_gaps->areSought()))
        text += integralText(m_model, b.column, spanIntegral(), period);
    setMarkerLabel(*item(1), text, m_selected == 1);
    keepLabelsApart(*item(0), *item(1), xRange.second - xRange.first);
    return true;
}

} // namespace Corvale_Qt
