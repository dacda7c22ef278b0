// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/TriggeredSweeps_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

void TriggeredSweeps::set(const SweepTrigger &trigger)
{
    m_trigger = trigger;
    m_search = TriggerSearch(trigger);
    m_triggerRow = 0;
    arm();
}

void TriggeredSweeps::arm()
{
    m_isDone = false;
    m_state = m_trigger.isOn() ? TriggerState::Armed : TriggerState::Off;
}

void TriggeredSweeps::restart()
{
    m_search = TriggerSearch(m_trigger);
    m_nextRow = 1;
    m_triggerRow = 0;
    m_shownTo = 0;
}

void TriggeredSweeps::rowsRemoved(int start, int end)
{
    if (start != 1) {
        if (start < m_nextRow)
            restart();
        return;
    }
    m_nextRow = std::max(m_nextRow - end, 1);
    m_shownTo = std::max(m_shownTo - end, 0);
    if (m_triggerRow > 0)
        m_triggerRow = std::max(m_triggerRow - end, 0); // 0: the trigger itself has gone
}

int TriggeredSweeps::before(int length) const
{
    return std::min(int(std::lround(m_trigger.shareBefore * length)), length - 1);
}

/*! Reads the last rows that were searched once more, without finding triggers there. Otherwise a step that only the change of their
    values made would be one. */
void TriggeredSweeps::readAgain(const PlotDataReader &reader)
{
    constexpr int most = 512;
    double x[most];
    double values[most];
    const int first = std::max(1, m_nextRow - most);
    const int count = m_nextRow - first;
    m_areValuesOther = false;
    m_search.forgetSide();
    if (count < 1)
        return;
    reader.read(0, first, count, x);
    reader.read(m_trigger.channel, first, count, values);
    for (int i = 0; i < count; ++i)
        m_search.add(x[i], values[i], false);
}

//! Searches for the next trigger that has enough rows before it and lies behind the last sweep.
void TriggeredSweeps::search(const PlotDataReader &reader, int lastRow, int length)
{
    constexpr int chunk = 512;
    double x[chunk];
    double values[chunk];
    if (m_areValuesOther && m_nextRow - 1 <= lastRow)
        readAgain(reader);
    while (m_nextRow <= lastRow && m_triggerRow == 0) {
        const int first = m_nextRow;
        const int count = std::min(chunk, lastRow - first + 1);
        reader.read(0, first, count, x);
        reader.read(m_trigger.channel, first, count, values);
        for (int i = 0; i < count && m_triggerRow == 0; ++i) {
            const int row = m_nextRow++;
            const bool fits = row > m_shownTo && row > before(length);
            if (m_search.add(x[i], values[i], fits))
                m_triggerRow = row;
        }
    }
}

std::optional<TriggeredSweeps::Sweep>
TriggeredSweeps::triggered(const PlotDataReader &reader, int lastRow, int length)
{
    search(reader, lastRow, length);
    if (m_triggerRow == 0)
        return std::nullopt;
    const int first = m_triggerRow - before(length);
    const int last = first + length - 1;
    if (first < 1) { // its beginning has left the model while the rest was awaited
        m_triggerRow = 0;
        return triggered(reader, lastRow, length);
    }
    if (last > lastRow)
        return std::nullopt;
    const Sweep sweep{{first, last}, m_triggerRow, true};
    m_triggerRow = 0;
    m_shownTo = last;
    return sweep;
}

std::optional<TriggeredSweeps::Sweep> TriggeredSweeps::automatic(int lastRow, int length)
{
    // The first one waits for two sweeps, those after it follow one another.
    const int wait = m_state == TriggerState::Automatic ? length : 2 * length;
    if (m_trigger.mode != SweepTrigger::Mode::Automatic || m_triggerRow > 0
        || lastRow - m_shownTo < wait)
        return std::nullopt;
    m_shownTo = lastRow;
    const int first = lastRow - length + 1;
    return Sweep{{first, lastRow}, first + before(length), false};
}

std::optional<TriggeredSweeps::Sweep>
TriggeredSweeps::update(const PlotDataReader &reader, int lastRow, int length)
{
    std::optional<Sweep> newest;
    if (m_isDone || !m_trigger.isOn() || length < 2) {
        m_nextRow =
            std::max(m_nextRow, lastRow + 1); // what comes while it is not armed is not searched
        return newest;
    }
    while (const auto sweep = triggered(reader, lastRow, length)) {
        newest = sweep;
        m_isDone = m_trigger.mode == SweepTrigger::Mode::Single;
        if (m_isDone)
            break;
    }
    if (const auto sweep = automatic(lastRow, length))
        newest = sweep;
    if (newest)
        m_state = newest->isTriggered ? TriggerState::Triggered : TriggerState::Automatic;
    return newest;
}

} // namespace Corvale_Qt
