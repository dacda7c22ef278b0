// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/PluginQueue.h"

#include <utility>

namespace Monitor {

PluginQueue::PluginQueue(std::function<void()> wake)
    : m_wake(std::move(wake))
{
}

PluginQueue::Content PluginQueue::takeAll()
{
    const std::lock_guard lock(m_mutex);
    m_isAwake = false;
    m_values = 0;
    Content content = std::exchange(m_content, Content());
    if (m_lastStream)
        content.items.emplace_back(*std::exchange(m_lastStream, std::nullopt));
    if (m_lastState)
        content.items.emplace_back(*std::exchange(m_lastState, std::nullopt));
    return content;
}

void PluginQueue::close()
{
    const std::lock_guard lock(m_mutex);
    m_wake = nullptr;
    m_content = Content();
    m_lastStream.reset();
    m_lastState.reset();
}

//! Appends an item; the mutex must be locked.
void PluginQueue::append(Item item)
{
    if (!m_wake)
        return;
    m_content.items.push_back(std::move(item));
    if (!std::exchange(m_isAwake, true))
        m_wake();
}

//! Appends a line, if there is room for lines.
void PluginQueue::appendText(Item item)
{
    const std::lock_guard lock(m_mutex);
    if (hasRoom())
        append(std::move(item));
    else
        ++m_content.droppedLines;
}

void PluginQueue::begin(const CorvaleMonitor::SourceStream &stream)
{
    const std::lock_guard lock(m_mutex);
    m_valuesPerReading = std::size_t(qMax(0, stream.valuesPerReading()));
    if (!m_content.items.empty()
        && std::holds_alternative<CorvaleMonitor::SourceStream>(m_content.items.back()))
        m_content.items.back() = stream; // nothing came of the one before
    else if (hasRoom())
        append(stream);
    else
        m_lastStream = stream;
}

void PluginQueue::add(int count, const double *times, const double *values)
{
    const std::lock_guard lock(m_mutex);
    const std::size_t number = std::size_t(qMax(0, count)) * m_valuesPerReading;
    if (number == 0 || !m_wake)
        return;
    Readings *readings =
        m_content.items.empty() ? nullptr : std::get_if<Readings>(&m_content.items.back());
    // Readings of a stream that itself found no room would be taken for those of the one before.
    const bool hasPlace = !m_lastStream && (readings || hasRoom());
    if (!hasPlace || m_values + number > mostValues) {
        m_content.droppedReadings += count;
        return;
    }
    m_values += number;
    if (!readings) {
        append(Readings());
        readings = std::get_if<Readings>(&m_content.items.back());
    }
    readings->times.insert(readings->times.end(), times, times + count);
    readings->values.insert(readings->values.end(), values, values + number);
}

void PluginQueue::setState(CorvaleMonitor::SourceState state, const QString &text)
{
    const std::lock_guard lock(m_mutex);
    if (!m_content.items.empty() && std::holds_alternative<State>(m_content.items.back()))
        m_content.items.back() = State{state, text};
    else if (hasRoom())
        append(State{state, text});
    else
        m_lastState = State{state, text};
}

void PluginQueue::note(const QString &text)
{
    appendText(Note{text});
}

void PluginQueue::tell(const QString &line)
{
    appendText(Line{line});
}

} // namespace Monitor
