// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeMarkerItem_p.h"
#include "corvale_qt/scope/ScopeMarkers_p.h"

#include <qwt_plot.h>
#include <qwt_series_data.h>

#include <QItemSelectionModel>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

ScopeMarkers::ScopeMarkers(RVXScopePlotView *view, QwtPlot *plot, const ScopeModel &model)
    : m_view(view)
    , m_plot(plot)
    , m_model(model)
    , m_data(count)
{
    QSharedPointer<const ScopeMarkerItem> before;
    for (State &state : m_states) {
        const auto item = QSharedPointer<ScopeMarkerItem>::create();
        item->keepBelow(before);
        prepareMarker(*item);
        state.item = item;
        before = item;
    }
}

void ScopeMarkers::place(int index, const QPointF &position)
{
    State &state = m_states[size_t(index)];
    state.item->detach();
    state.item->setValue(position);
    state.item->attach(m_plot);
    state.channel = -1;
    state.held = -1;
    state.onSample = false;
    state.sweepOffset = -1;
    m_selected = index;
}

void ScopeMarkers::lockToChannel(int index, int channel)
{
    m_states[size_t(index)].channel = channel;
}

void ScopeMarkers::attach(int index)
{
    item(index)->attach(m_plot);
}

void ScopeMarkers::detach(int index)
{
    item(index)->detach();
}

void ScopeMarkers::detachAll()
{
    for (int i = 0; i < count; ++i)
        detach(i);
}

void ScopeMarkers::forgetChannels()
{
    for (State &state : m_states) {
        state.channel = -1;
        state.held = -1;
    }
}

void ScopeMarkers::forgetSweep()
{
    for (State &state : m_states)
        state.sweepOffset = -1;
}

void ScopeMarkers::begin()
{
    for (int i = 0; i < count; ++i) {
        m_data[i] = Data();
        m_data[i].x = item(i)->xValue();
        State &state = m_states[size_t(i)];
        if (isAttached(i) && state.held > 0 && !m_model.isShown(state.held))
            state.held = -1;
    }
}

void ScopeMarkers::selectOther()
{
    const int other = count - 1 - m_selected;
    if (isAttached(other))
        m_selected = other;
}

void ScopeMarkers::clearLabels()
{
    for (const State &state : m_states)
        state.item->setLabel(QwtText());
}

std::pair<int, double> ScopeMarkers::findStripMarkerTime(double x) const
{
    const PlotColumnReader reader = m_model.reader();
    const int row = firstRowFrom(reader, {1, m_model.lastRow()}, x);
    return {row, row < 0 ? x : sampleX(reader, row)};
}

void ScopeMarkers::findInStrip()
{
    for (int i = 0; i < count; ++i) {
        if (!isAttached(i))
            continue;
        State &state = m_states[size_t(i)];
        Data &data = m_data[i];
        const auto [row, x] = findStripMarkerTime(data.x);
        // The marker's own sample has left the buffer; the oldest one is another.
        const bool gone = state.onSample && row == 1 && x > data.x;
        if (row < 0 || gone)
            continue;
        data.row = row;
        data.x = x;
        state.onSample = true;
    }
}

void ScopeMarkers::findInSweep(RowRange sweep)
{
    const PlotColumnReader reader = m_model.reader();
    for (int i = 0; i < count; ++i) {
        if (!isAttached(i))
            continue;
        State &state = m_states[size_t(i)];
        Data &data = m_data[i];
        int row = -1;
        if (state.sweepOffset >= 0)
            row = state.sweepOffset < sweep.size() ? sweep.first + state.sweepOffset : -1;
        else if (!state.onSample || data.x >= sampleX(reader, sweep.first))
            row = firstRowFrom(reader, sweep, data.x);
        if (row < 0)
            continue;
        data.row = row;
        data.x = sampleX(reader, row);
        state.onSample = true;
        state.sweepOffset = row - sweep.first;
    }
}

void ScopeMarkers::snap(int channel, const QwtSeriesData<QPointF> &series, int firstRow)
{
    for (int i = 0; i < count; ++i) {
        Data &data = m_data[i];
        if (data.row < firstRow || data.row - firstRow >= int(series.size()))
            continue;
        const double y = series.sample(size_t(data.row - firstRow)).y();
        if (!takes(i, channel, y, data))
            continue;
        data.y = y;
        data.value = m_model.plot()->doubleData(data.row, channel);
        data.column = channel;
    }
}

bool ScopeMarkers::takes(int index, int channel, double y, const Data &data) const
{
    const State &state = m_states[size_t(index)];
    const int kept = state.channel > 0 ? state.channel : state.held;
    if (kept > 0)
        return channel == kept;
    const double clicked = state.item->yValue();
    return std::abs(y - clicked) < std::abs(data.y - clicked);
}

void ScopeMarkers::setStripMarker(int index, const std::pair<double, double> &xRange)
{
    if (!isAttached(index))
        return;
    State &state = m_states[size_t(index)];
    Data &data = m_data[index];
    if (data.column > 0)
        state.held = data.column;
    else if (data.row > 0)
        readHeldChannel(index);

    // A marker without a sample to stand on stays where it is.
    state.item->setXValue(data.x);
    if (std::isfinite(data.y) && data.y < std::numeric_limits<double>::max())
        state.item->setYValue(data.y);
    const bool reads = data.row > 0 && data.column > 0;
    setMarkerLabel(*state.item,
                   reads ? sampleText(m_model, data.x, data.column, data.value)
                         : timeText(m_model, data.x),
                   index == m_selected);
    // Outside the plot only a corner of the label would be seen.
    if (data.x < xRange.first || data.x > xRange.second)
        state.item->setLabel(QwtText());
    setMarkerLine(*state.item, reads ? m_model.brush(data.column) : QBrush(Qt::NoBrush));
    const double threeQuarters = xRange.first + 0.75 * (xRange.second - xRange.first);
    alignMarkerLabel(*state.item, data.x >= threeQuarters ? Qt::AlignLeft : Qt::AlignRight);

    if (index == 0 && reads)
        select(data);
    if (index == 1)
        describeSpan(xRange);
}

//! The sample of a marker that is outside the rows drawn.
void ScopeMarkers::readHeldChannel(int index)
{
    const State &state = m_states[size_t(index)];
    const int channel = state.channel > 0 ? state.channel : state.held;
    if (channel <= 0 || channel > m_model.channelCount() || !m_model.isShown(channel))
        return;
    m_data[index].column = channel;
    m_data[index].value = m_model.plot()->doubleData(m_data[index].row, channel);
}

void ScopeMarkers::select(const Data &data) const
{
    QItemSelectionModel *selection = m_view->selectionModel();
    const QAbstractItemModel *model = m_view->model();
    if (selection && model)
        selection->select(model->index(data.row, data.column), QItemSelectionModel::ClearAndSelect);
}

void ScopeMarkers::describeSpan(const std::pair<double, double> &xRange)
{
    const Data &a = m_data[0];
    const Data &b = m_data[1];
    if (!isAttached(0) || !isAttached(1) || a.row < 1 || b.row < 1 || b.column < 1)
        return;
    const double period = std::abs(a.x - b.x);
    const auto rows = std::minmax(a.row, b.row);
    const MarkerStatistics statistics =
        statisticsOfRows(m_model.reader(), b.column, {rows.first, rows.second});
    setMarkerLabel(*item(1),
                   spanText(sampleText(m_model, b.x, b.column, b.value), period, statistics),
                   m_selected == 1);
    keepLabelsApart(*item(0), *item(1), xRange.second - xRange.first);
}

void ScopeMarkers::moveInStrip(int index, int steps)
{
    Data &data = m_data[index];
    if (!isAttached(index) || data.row < 1)
        return;
    const PlotColumnReader reader = m_model.reader();
    const int last = m_model.lastRow();
    int row = std::clamp(data.row + steps, 1, last);
    // Samples of one time are one step: the marker is found again by its time.
    const int direction = steps < 0 ? -1 : 1;
    while (row + direction >= 1 && row + direction <= last && sampleX(reader, row) == data.x)
        row += direction;
    // Kept here as well: the next key may come before the next plot.
    data.row = row;
    data.x = sampleX(reader, row);
    item(index)->setXValue(data.x);
}

void ScopeMarkers::moveInSweep(int index, int steps, int sweepLength)
{
    State &state = m_states[size_t(index)];
    if (isAttached(index) && state.sweepOffset >= 0)
        state.sweepOffset = std::clamp(state.sweepOffset + steps, 0, sweepLength - 1);
}

} // namespace Corvale_Qt
