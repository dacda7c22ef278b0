// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/proxies/ComputedReadings_p.h"

#include <algorithm>
#include <limits>

namespace Corvale_Qt {

bool ComputedReadings::compile(const QStringList &names,
                               const QVector<ComputedChannel> &computed,
                               ExpressionFault *fault)
{
    m_isGood = m_expressions.compile(names, computed, fault);
    m_inputs = m_expressions.inputs();
    m_readings.assign(size_t(m_inputs.size()), std::vector<double>(chunk));
    m_sources.assign(size_t(names.size()), nullptr);
    for (int i = 0; i < m_inputs.size(); ++i)
        m_sources[size_t(m_inputs[i])] = m_readings[size_t(i)].data();
    m_channels = std::vector<Channel>(size_t(computed.size()));
    m_outputs.clear();
    for (Channel &channel : m_channels) {
        channel.results.assign(chunk, std::numeric_limits<double>::quiet_NaN());
        m_outputs.push_back(channel.results.data());
    }
    return m_isGood;
}

void ComputedReadings::reset(int capacity)
{
    for (Channel &channel : m_channels) {
        channel.ring.clear();
        channel.ring.set_capacity(SampleRing::capacity_type(std::max(capacity, 0)));
        channel.ranges.forget();
    }
    m_taken = 0;
}

bool ComputedReadings::spans(int channel, int firstRow, int count, RingSpans &spans) const
{
    const Channel &own = m_channels[size_t(channel)];
    if (!ringSpans(own.ring, firstRow - 1, count, spans))
        return false;
    own.ranges.serve(spans, m_taken - rows() + firstRow - 1);
    return true;
}

void ComputedReadings::dropOldest(int count)
{
    const int dropped = std::clamp(count, 0, rows());
    for (Channel &channel : m_channels)
        channel.ring.erase_begin(SampleRing::size_type(dropped));
}

void ComputedReadings::update(const PlotDataReader &source, int from, int rows)
{
    const int kept = std::clamp(from - 1, 0, this->rows());
    if (kept < this->rows()) {
        m_taken -= this->rows() - kept;
        for (Channel &channel : m_channels) {
            channel.ring.resize(SampleRing::size_type(kept));
            channel.ranges.forget();
        }
    }
    for (int first = kept + 1; first <= rows; first += chunk) {
        const int count = std::min(chunk, rows - first + 1);
        computeChunk(source, first, count);
        for (Channel &channel : m_channels) {
            if (int(channel.ring.capacity())
                < rows) // the source has more rows than it says it keeps
                channel.ring.set_capacity(SampleRing::capacity_type(rows));
            channel.ring.insert(channel.ring.end(),
                                channel.results.begin(),
                                channel.results.begin() + count);
        }
        m_taken += count;
    }
}

void ComputedReadings::compute(const PlotDataReader &source,
                               int channel,
                               int firstRow,
                               int count,
                               double *out)
{
    for (int done = 0; done < count; done += chunk) {
        const int part = std::min(chunk, count - done);
        computeChunk(source, firstRow + done, part);
        std::copy_n(m_channels[size_t(channel)].results.begin(), part, out + done);
    }
}

bool ComputedReadings::hasOwnDrops(const PlotDataReader &source) const
{
    return std::any_of(m_inputs.begin(), m_inputs.end(), [&source](int channel) {
        return source.droppedRows(channel + 1) >= 0;
    });
}

void ComputedReadings::computeChunk(const PlotDataReader &source, int firstRow, int count)
{
    if (!m_isGood)
        return;
    for (int i = 0; i < m_inputs.size(); ++i)
        source.read(m_inputs[i] + 1, firstRow, count, m_readings[size_t(i)].data());
    m_expressions.evaluate(m_sources.data(), count, m_outputs.data());
}

} // namespace Corvale_Qt
