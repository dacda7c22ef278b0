// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/ComputedStream.h"

#include "monitor/core/Text.h"

#include <algorithm>
#include <numeric>

namespace Monitor {

namespace {

constexpr int chunk = 256; // rows that are computed together

//! Returns which of the channels is computed as \a wanted is; -1 for none.
int indexOfSame(const QVector<Corvale_Qt::ComputedChannel> &channels,
                const Corvale_Qt::ComputedChannel &wanted)
{
    const auto found = std::find_if(channels.begin(), channels.end(), [&](const auto &channel) {
        return channel.name == wanted.name && channel.unit == wanted.unit
            && channel.expression == wanted.expression;
    });
    return found == channels.end() ? -1 : int(found - channels.begin());
}

} // namespace

ComputedStream::ComputedStream(const QVector<Corvale_Qt::ComputedChannel> &channels)
    : m_channels(channels)
{
}

LoggedText ComputedStream::begin(StreamHeader &header)
{
    QStringList names;
    for (const Channel &channel : header.channels)
        names.append(channel.name);
    Corvale_Qt::ExpressionFault fault;
    m_expressions.compile(names, {}, &fault);
    if (m_channels.isEmpty())
        return {};
    if (header.kind != StreamKind::Channels)
        return LoggedText::of([&header] {
            return Text::tr("no channel is computed: the stream has %1, and only independent "
                            "channels can be computed with")
                .arg(kindText(header.kind));
        });
    if (header.channels.size() + m_channels.size() > StreamHeader::maxChannels)
        return LoggedText::of([] {
            return Text::
                tr("no channel is computed: there would be more than %1 channels; compute fewer")
                    .arg(StreamHeader::maxChannels);
        });
    if (!m_expressions.compile(names, m_channels, &fault))
        return LoggedText::of([&] {
            m_expressions.compile(names, m_channels, &fault);
            return Text::tr("no channel is computed: %1, %2")
                .arg(m_channels[fault.channel].name, fault.message());
        });
    m_inputs.assign(size_t(names.size()), std::vector<double>());
    for (const int input : m_expressions.inputs())
        m_inputs[size_t(input)].resize(chunk);
    m_outputs.assign(size_t(m_channels.size()), std::vector<double>(chunk));
    for (const Corvale_Qt::ComputedChannel &channel : qAsConst(m_channels))
        header.channels.append({channel.name, channel.unit});
    header.computed = m_channels.size();
    return {};
}

const ReadingBlock &ComputedStream::extended(const ReadingBlock &readings)
{
    const int count = m_expressions.count();
    if (count == 0 || size_t(readings.channels()) != m_inputs.size())
        return readings;
    m_block.clear(readings.channels() + count);
    for (int first = 0; first < readings.size(); first += chunk)
        compute(readings, first, std::min(chunk, readings.size() - first));
    return m_block;
}

QVector<int> ComputedStream::formerColumns(const ComputedStream &former, int measured) const
{
    QVector<int> columns(measured + m_expressions.count());
    std::iota(columns.begin(), columns.begin() + measured, 1);
    int *const own = columns.data() + measured;
    for (int i = 0; i < m_expressions.count(); ++i) {
        const int same = indexOfSame(former.m_channels, m_channels[i]);
        own[i] = same < 0 || former.m_expressions.count() == 0 ? 0 : measured + 1 + same;
    }
    // A channel that may use a recomputed one is recomputed as well.
    const auto usesNew = [this, own](int i) {
        for (int other = 0; other < m_expressions.count(); ++other)
            if (own[other] == 0 && m_channels[i].expression.contains(m_channels[other].name))
                return true;
        return false;
    };
    for (bool changes = true; changes;) {
        changes = false;
        for (int i = 0; i < m_expressions.count(); ++i) {
            if (own[i] == 0 || !usesNew(i))
                continue;
            own[i] = 0;
            changes = true;
        }
    }
    return columns;
}

//! Appends rows with their computed readings to the block.
void ComputedStream::compute(const ReadingBlock &readings, int first, int rows)
{
    for (size_t channel = 0; channel < m_inputs.size(); ++channel) {
        if (m_inputs[channel].empty()) // no expression uses it
            continue;
        for (int row = 0; row < rows; ++row)
            m_inputs[channel][size_t(row)] = readings.values(first + row)[channel];
    }
    std::vector<const double *> inputs;
    for (const auto &input : m_inputs)
        inputs.push_back(input.data());
    std::vector<double *> outputs;
    for (auto &output : m_outputs)
        outputs.push_back(output.data());
    m_expressions.evaluate(inputs.data(), rows, outputs.data());

    std::vector<double> values(m_inputs.size() + m_outputs.size());
    for (int row = 0; row < rows; ++row) {
        auto next = std::copy_n(readings.values(first + row), m_inputs.size(), values.begin());
        for (const auto &output : m_outputs)
            *next++ = output[size_t(row)];
        m_block.append(readings.time(first + row), values.data());
    }
}

} // namespace Monitor
