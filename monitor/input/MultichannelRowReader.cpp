// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/MultichannelRowReader.h"

#include "monitor/input/LineText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Monitor {

namespace {

//! A channel that is this many values ahead of the others no longer waits for them.
constexpr std::size_t maxWaiting = 200000;

QVector<Channel> numberedChannels(int count)
{
    QVector<Channel> channels;
    for (int i = 0; i < count; ++i)
        channels.append({QStringLiteral("channel_%1").arg(i + 1), {}});
    return channels;
}

} // namespace

std::unique_ptr<MultichannelRowReader> MultichannelRowReader::fromHeader(const QStringList &fields)
{
    // The proxy cuts one more letter off "channel_" for each channel, and files of hosts have these names.
    const bool known = fields.size() >= 2 && fields[0] == QLatin1String("hannel__timestamp(s)")
        && fields[1] == QLatin1String("hannel_");
    if (!known)
        return nullptr;
    const auto count = std::count_if(fields.begin(), fields.end(), [](const QString &field) {
        return field.endsWith(QLatin1String("_timestamp(s)"));
    });
    if (count > StreamHeader::maxChannels)
        return nullptr;
    return std::unique_ptr<MultichannelRowReader>(new MultichannelRowReader(int(count)));
}

MultichannelRowReader::MultichannelRowReader(int channels)
    : RowReader(numberedChannels(channels), StreamKind::Channels)
    , m_columns(std::size_t(channels))
    , m_line(std::size_t(channels))
    , m_values(std::size_t(channels))
{
}

RowReader::Outcome
MultichannelRowReader::read(const Fields &fields, double, const RowHandler &handler)
{
    const std::size_t wanted = 2 * m_columns.size();
    const bool emptyEnd = fields.size() == wanted + 1 && fields.back().empty();
    if (fields.size() != wanted && !emptyEnd)
        return Outcome::WrongCount;
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (!parseNumber(fields[2 * i], &m_line[i].time)
            || !parseNumber(fields[2 * i + 1], &m_line[i].value) || std::isinf(m_line[i].time))
            return Outcome::Unreadable;

    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (std::isnan(m_line[i].time))
            m_columns[i].ended = true;
        else
            m_columns[i].waiting.push_back(m_line[i]);
    }
    while (isComplete())
        mergeOldest(handler);
    return Outcome::Taken;
}

void MultichannelRowReader::finish(const RowHandler &handler)
{
    for (Column &column : m_columns)
        column.ended = true;
    while (isComplete())
        mergeOldest(handler);
}

//! Returns whether the oldest waiting values can be merged, because no channel can still bring an older one.
bool MultichannelRowReader::isComplete() const
{
    bool any = false;
    bool unknown = false;
    bool full = false;
    for (const Column &column : m_columns) {
        any = any || !column.waiting.empty();
        unknown = unknown || (column.waiting.empty() && !column.ended);
        full = full || column.waiting.size() > maxWaiting;
    }
    return any && (!unknown || full);
}

void MultichannelRowReader::mergeOldest(const RowHandler &handler)
{
    double oldest = std::numeric_limits<double>::infinity();
    for (const Column &column : m_columns)
        if (!column.waiting.empty())
            oldest = std::min(oldest, column.waiting.front().time);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        std::deque<Sample> &waiting = m_columns[i].waiting;
        const bool here = !waiting.empty() && waiting.front().time == oldest;
        m_values[i] = here ? waiting.front().value : std::numeric_limits<double>::quiet_NaN();
        if (here)
            waiting.pop_front();
    }
    handler(oldest, m_values.data());
}

} // namespace Monitor
