// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/epics/EpicsRows.h"

#include <algorithm>
#include <cmath>

void EpicsRows::begin(const std::vector<int> &sizes)
{
    *this = EpicsRows();
    std::size_t first = 0;
    for (const int size : sizes) {
        Variable variable;
        variable.first = first;
        variable.size = size;
        m_variables.push_back(variable);
        first += std::size_t(size);
    }
    m_values.assign(first, std::numeric_limits<double>::quiet_NaN());
}

void EpicsRows::fill(const Variable &variable, const double *values, int count)
{
    double *place = m_values.data() + variable.first;
    const int given = std::min(count, variable.size);
    std::copy_n(values, given, place);
    std::fill(place + given, place + variable.size, std::numeric_limits<double>::quiet_NaN());
}

void EpicsRows::expect(int index)
{
    Variable &variable = m_variables[std::size_t(index)];
    m_present += variable.isPresent ? 0 : 1;
    variable.isPresent = true;
}

void EpicsRows::update(int index, double time, const double *values, int count, const Sink &sink)
{
    expect(index);
    Variable &variable = m_variables[std::size_t(index)];
    if (variable.isNew)
        flush(sink);
    const bool isKnown = !std::isnan(time);
    if (isKnown && time < variable.time)
        m_any = false; // the server's clock was set back: earlier rows say nothing of the new time
    const double rowTime = isKnown ? time : m_any ? m_lastTime : 0.0;
    m_time = m_waiting > 0 ? std::max(m_time, rowTime) : rowTime;
    if (isKnown)
        variable.time = time;
    variable.isNew = true;
    fill(variable, values, count);
    if (++m_waiting == m_present)
        flush(sink);
}

void EpicsRows::remove(int index, const Sink &sink)
{
    Variable &variable = m_variables[std::size_t(index)];
    if (!variable.isPresent)
        return;
    flush(sink);
    variable.isPresent = false;
    --m_present;
    fill(variable, nullptr, 0);
    if (m_any)
        sink(m_lastTime, m_values.data());
}

void EpicsRows::flush(const Sink &sink)
{
    if (m_waiting == 0)
        return;
    // The clocks of servers differ a little, and a row must not seem to be older than the one before.
    m_lastTime = m_any ? std::max(m_lastTime, m_time) : m_time;
    m_any = true;
    m_waiting = 0;
    for (Variable &variable : m_variables)
        variable.isNew = false;
    sink(m_lastTime, m_values.data());
}
