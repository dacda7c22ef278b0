// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/SampleNoise_p.h"
#include "corvale_qt/plot/CanvasColors_p.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/ScopeAxes_p.h"
#include "corvale_qt/scope/ScopeMarkerItem_p.h"
#include "corvale_qt/scope/ScopeMarkers_p.h"
#include "corvale_qt/scope/ScopeSurface_p.h"

#include <qwt_plot.h>
#include <qwt_scale_map.h>
#include <qwt_series_data.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

ScopeMarkers::ScopeMarkers(ScopeSurface &surface,
                           QwtPlot *plot,
                           const ScopeModel &model,
                           const ScopeAxes &axes)
    : m_surface(surface)
    , m_plot(plot)
    , m_model(model)
    , m_axes(axes)
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
    state.item->setYAxis(QwtPlot::yLeft);
    state.item->setValue(position);
    state.item->attach(m_plot);
    state.channel = -1;
    state.held = -1;
    state.onSample = false;
    state.inBlocks = false;
    state.row = -1;
    state.sweepOffset = -1;
    m_selected = index;
    if (index == 0)
        m_selects = true;
}

ScopeMarkers::Placed ScopeMarkers::placed(int index) const
{
    const State &state = m_states[size_t(index)];
    return {isAttached(index),
            state.item->value(),
            state.channel,
            state.held,
            state.onSample,
            state.sweepOffset,
            m_selected,
            m_selects,
            state.item->yAxis()};
}

void ScopeMarkers::restore(const Placed &placed)
{
    place(0, placed.value);
    State &state = m_states[0];
    state.item->setYAxis(placed.yAxis);
    state.channel = placed.channel;
    state.held = placed.held;
    state.onSample = placed.onSample;
    state.sweepOffset = placed.sweepOffset;
    m_selected = placed.selected;
    m_selects = placed.selects;
    if (!placed.isAttached)
        detach(0);
}

void ScopeMarkers::followSelection(int row, int channel)
{
    State &state = m_states[0];
    m_selects = false;
    state.channel = channel > 0 ? channel : -1; // column 0 is the time
    if (row > 0) {
        state.item->setXValue(sampleX(m_model.reader(), row));
        state.onSample = true;
        state.inBlocks = false;
        state.row = row;
        state.sweepOffset = -1;
    }
    for (const State &each : m_states)
        each.item->attach(m_plot);
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

void ScopeMarkers::followChannels(const ChannelMoves &now)
{
    const auto follow = [&now](int &channel) {
        const int found = channel > 0 ? now(channel) : 0;
        channel = found > 0 ? found : -1;
    };
    for (State &state : m_states) {
        follow(state.channel);
        follow(state.held);
    }
    forgetReadings();
}

void ScopeMarkers::forgetChannels()
{
    for (State &state : m_states) {
        state.channel = -1;
        state.held = -1;
    }
}

void ScopeMarkers::forgetChannelsAfter(int last)
{
    followChannels([last](int channel) {
        return channel <= last ? channel : 0;
    });
}

void ScopeMarkers::forgetSweep()
{
    for (State &state : m_states)
        state.sweepOffset = -1;
    forgetReadings();
}

void ScopeMarkers::forgetRows()
{
    m_span.forget();
    for (State &state : m_states)
        state.row = -1;
}

void ScopeMarkers::samplesHaveGone()
{
    for (int i = 0; i < count; ++i) {
        if (m_states[size_t(i)].row > 0 || m_states[size_t(i)].inBlocks)
            detach(i);
    }
    forgetRows();
}

void ScopeMarkers::forgetReadings()
{
    m_data.fill(Data());
    m_span.forget();
}

void ScopeMarkers::cellsChanged(int top, int bottom)
{
    const bool isStrip = m_modelRows.first == 1; // its rows are those of the model
    if (isStrip && top >= 0 && bottom >= 0)
        m_span.cellsChanged(top, bottom);
    else
        m_span.forget();
}

void ScopeMarkers::rowsInserted(int start, int end)
{
    m_span.rowsInserted(start);
    for (State &state : m_states) {
        if (state.row >= start)
            state.row += end - start + 1;
    }
}

void ScopeMarkers::rowsRemoved(int start, int end)
{
    m_span.rowsRemoved(start, end);
    for (int i = 0; i < count; ++i) {
        State &state = m_states[size_t(i)];
        if (state.row < start)
            continue;
        if (state.row > end) {
            state.row -= end - start + 1;
            continue;
        }
        state.row = -1;
        if (RVXPlotHistory::of(m_model.plot())) { // its reading is in a block now
            state.onSample = false;
            state.inBlocks = true;
            continue;
        }
        remove(i);
    }
}

//! Takes a marker away whose sample has left; keys move the other one then.
void ScopeMarkers::remove(int index)
{
    detach(index);
    if (m_selected == index)
        selectOther();
}

void ScopeMarkers::begin(const PlotDataReader &reader, RowRange modelRows)
{
    m_reader = reader;
    m_modelRows = modelRows;
    for (int i = 0; i < count; ++i) {
        m_data[size_t(i)] = Data();
        m_data[size_t(i)].x = item(i)->xValue();
        State &state = m_states[size_t(i)];
        const bool isDrawn = state.held > 0 && m_model.isShown(state.held)
            && m_axes.axisOf(state.held) != ScopeAxes::noAxis;
        if (isAttached(i) && !isDrawn)
            state.held = -1;
    }
}

void ScopeMarkers::selectOther()
{
    if (m_selected < 0)
        return;
    const int other = count - 1 - m_selected;
    if (isAttached(other))
        m_selected = other;
}

void ScopeMarkers::clearLabels()
{
    for (const State &state : m_states)
        state.item->setLabel(QwtText());
}

void ScopeMarkers::findInStrip(const RVXPlotHistory *history, double firstX)
{
    m_history = history;
    for (int i = 0; i < count; ++i) {
        State &state = m_states[size_t(i)];
        Data &data = m_data[size_t(i)];
        if (!isAttached(i))
            continue;
        if (history && !state.onSample && state.row < 0 && data.x < firstX) {
            findInBlocks(i);
            continue;
        }
        if (state.row < 0 && !state.inBlocks) {
            state.row = state.onSample ? rowAt(m_reader, m_modelRows, data.x)
                                       : firstRowFrom(m_reader, m_modelRows, data.x);
        }
        if (state.row < 0 && (state.onSample || state.inBlocks))
            remove(i); // neither a row nor a block has its sample any more
        if (state.row < 0)
            continue;
        data.row = state.row;
        data.x = sampleX(m_reader, state.row);
        state.onSample = true;
    }
}

//! Finds the block of a marker before the first row, unless the history has forgotten the time at which the marker stood.
void ScopeMarkers::findInBlocks(int index)
{
    State &state = m_states[size_t(index)];
    Data &data = m_data[size_t(index)];
    if (state.inBlocks && data.x < m_history->oldest()) {
        remove(index);
        return;
    }
    data.place = HistoryPlace::at(*m_history, data.x);
    const RVXPlotHistory::Interval block = m_history->interval(data.place.level, data.place.block);
    data.x = std::clamp(data.x, block.first, block.last); // nothing was read between blocks
    state.inBlocks = true;
}

void ScopeMarkers::findInSweep(int size, int lost)
{
    m_lostOfSweep = lost;
    for (int i = 0; i < count; ++i) {
        State &state = m_states[size_t(i)];
        Data &data = m_data[size_t(i)];
        if (!isAttached(i))
            continue;
        if (state.sweepOffset < 0)
            state.sweepOffset = sweepOffset(state, data.x, size);
        state.row = -1; // from now on the marker keeps to its offset in the sweep
        state.inBlocks = false;
        const int offset = state.sweepOffset - lost;
        if (offset < 0 || offset >= size)
            continue;
        data.row = 1 + offset;
        data.x = sampleX(m_reader, data.row);
        state.onSample = true;
    }
}

//! Finds the offset in the sweep of a marker that has none yet. Returns -1 if its sample is not in the sweep.
int ScopeMarkers::sweepOffset(const State &state, double x, int size) const
{
    if (state.row > 0)
        return m_modelRows.contains(state.row) ? state.row - m_modelRows.first + m_lostOfSweep : -1;
    if (state.onSample && x < sampleX(m_reader, 1))
        return -1;
    const int row = firstRowFrom(m_reader, {1, size}, x);
    return row < 0 ? -1 : row - 1 + m_lostOfSweep;
}

void ScopeMarkers::snap(int channel, const QwtSeriesData<QPointF> &series, int firstRow)
{
    for (int i = 0; i < count; ++i) {
        Data &data = m_data[size_t(i)];
        if (data.row < firstRow || data.row - firstRow >= int(series.size()))
            continue;
        if (const int kept = keptChannel(i); kept > 0 && kept != channel)
            continue;
        const double y = series.sample(size_t(data.row - firstRow)).y();
        if (!takes(i, channel, y, data))
            continue;
        data.y = y;
        data.value = value(data.row, channel);
        data.column = channel;
    }
}

void ScopeMarkers::snapToBlock(int channel, double divisor)
{
    for (int i = 0; i < count; ++i) {
        Data &data = m_data[size_t(i)];
        if (!m_history || !data.place.isValid())
            continue;
        RVXPlotHistory::Block block;
        const bool isRead = m_history->read(data.place.level, channel, data.place.block, 1, &block);
        const double y = block.mean / divisor;
        if (!isRead || block.count == 0 || !takes(i, channel, y, data))
            continue;
        data.y = y;
        data.column = channel;
        data.block = block;
    }
}

//! Returns a value as the model has it, or had it when the sweep was copied.
double ScopeMarkers::value(int row, int channel) const
{
    double value = 0.0;
    m_reader.read(channel, row, 1, &value);
    return value;
}

//! Returns the channel that a marker stays on; none is below 1.
int ScopeMarkers::keptChannel(int index) const
{
    const State &state = m_states[size_t(index)];
    return state.channel > 0 ? state.channel : state.held;
}

//! Returns whether a marker takes the sample of a channel, and notes how far that lies from the click.
bool ScopeMarkers::takes(int index, int channel, double y, Data &data) const
{
    if (const int kept = keptChannel(index); kept > 0)
        return channel == kept;
    const State &state = m_states[size_t(index)];
    const double found = distance(*state.item, channel, y);
    if (!(found < data.distance))
        return false;
    data.distance = found;
    return true;
}

//! Returns how far a value of a channel lies from a marker, on the y axis that the marker is on.
double ScopeMarkers::distance(const QwtPlotMarker &marker, int channel, double y) const
{
    const int axis = m_axes.axisOf(channel);
    if (axis != marker.yAxis())
        y = m_plot->canvasMap(marker.yAxis()).invTransform(m_plot->canvasMap(axis).transform(y));
    return std::abs(y - marker.yValue());
}

void ScopeMarkers::setStripMarker(int index, const std::pair<double, double> &xRange)
{
    if (!isAttached(index))
        return;
    State &state = m_states[size_t(index)];
    Data &data = m_data[size_t(index)];
    if (data.column > 0)
        state.held = data.column;
    else if (data.row > 0)
        readHeldChannel(index);

    // A marker that found no sample stays where it is.
    state.item->setXValue(data.x);
    if (std::isfinite(data.y) && data.y < std::numeric_limits<double>::max()) {
        state.item->setYAxis(m_axes.axisOf(data.column));
        state.item->setYValue(data.y);
    }
    const bool reads = data.row > 0 && data.column > 0;
    const bool hasChannel = reads || isOnBlock(data);
    const QColor plain = colorOnCanvas(RVXPlotColors::labelTextColor(), m_plot);
    setMarkerLine(*state.item, hasChannel ? m_model.brush(data.column) : QBrush(plain));
    const double threeQuarters = xRange.first + 0.75 * (xRange.second - xRange.first);
    alignMarkerLabel(*state.item, data.x >= threeQuarters ? Qt::AlignLeft : Qt::AlignRight);

    if (index == 0 && reads && m_selects)
        select(data);
    // Outside the plot, only a corner of the label would be visible.
    if (data.x < xRange.first || data.x > xRange.second)
        state.item->setLabel(QwtText());
    else if (index != 1 || !describeSpan(xRange))
        setMarkerLabel(*state.item, labelText(data, resolutionOf(xRange)), index == m_selected);
}

//! Returns what a marker says of the sample or of the block that it stands on.
QString ScopeMarkers::labelText(const Data &data, double resolution) const
{
    if (data.row > 0 && data.column > 0)
        return sampleText(m_model, marked(data, resolution));
    const QString time = timeText(m_model, data.x, resolution);
    return isOnBlock(data) ? time + blockText(m_model, data.column, data.block) : time;
}

//! Returns the sample of a marker. Its noise is looked at only if its text depends on it.
MarkedSample ScopeMarkers::marked(const Data &data, double resolution) const
{
    const double noise = m_model.hasSiPrefix() ? sampleNoise(m_reader, data.column, data.row) : 0.0;
    return {data.x, data.column, data.value, resolution, noise};
}

//! Reads the value of a marker whose sample is outside the rows that are drawn.
void ScopeMarkers::readHeldChannel(int index)
{
    const State &state = m_states[size_t(index)];
    const int channel = state.channel > 0 ? state.channel : state.held;
    if (channel <= 0 || channel > m_model.channelCount() || !m_model.isShown(channel))
        return;
    m_data[size_t(index)].column = channel;
    m_data[size_t(index)].value = value(m_data[size_t(index)].row, channel);
}

//! Returns the row of a sample in the model; 0 if it has left the model.
int ScopeMarkers::modelRow(const Data &data) const
{
    const int row = m_modelRows.first + data.row - 1;
    return row >= 1 && m_modelRows.contains(row) ? row : 0;
}

void ScopeMarkers::select(const Data &data) const
{
    if (const int row = modelRow(data))
        m_surface.selectCell(row, data.column);
}

} // namespace Corvale_Qt
