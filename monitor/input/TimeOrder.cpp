// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/TimeOrder.h"

#include <iterator>
#include <utility>

namespace Monitor {

TimeOrder::Verdict TimeOrder::finish()
{
    Verdict verdict;
    if (m_fresh)
        believeHeld(&verdict);
    else
        refuseHeld(&verdict);
    return verdict;
}

std::vector<TimeOrder::Reading> TimeOrder::giveUpHeld()
{
    m_fresh = true;
    return std::exchange(m_held, {});
}

TimeOrder::Verdict TimeOrder::weigh(Reading reading)
{
    Verdict verdict;
    if (m_fresh)
        weighSecond(std::move(reading), &verdict);
    else
        weighLater(std::move(reading), &verdict);
    return verdict;
}

//! Believes the first reading of a connection if the second one agrees with it.
void TimeOrder::weighSecond(Reading reading, Verdict *verdict)
{
    if (!m_held.empty()) {
        const double first = m_held.front().time;
        const bool startsOver = m_any && first < m_lastTime;
        const bool goesOnFromBefore = m_any && reading.time >= m_lastTime;
        const bool agrees = first <= reading.time && !(startsOver && goesOnFromBefore);
        if (!agrees)
            refuseHeld(verdict);
    }
    m_held.push_back(std::move(reading));
    if (m_held.size() > 1)
        believeHeld(verdict);
}

void TimeOrder::weighLater(Reading reading, Verdict *verdict)
{
    const bool goesOn = reading.time >= m_lastTime;
    const bool agrees = m_held.empty() || reading.time >= m_held.back().time;
    if (goesOn || !agrees)
        refuseHeld(verdict);
    m_held.push_back(std::move(reading));
    const bool enough = int(m_held.size()) >= linesOfAnotherTime;
    if (!goesOn && !enough)
        return;
    verdict->corrected = !goesOn;
    believeHeld(verdict);
}

void TimeOrder::refuseHeld(Verdict *verdict)
{
    std::move(m_held.begin(), m_held.end(), std::back_inserter(verdict->refused));
    m_held.clear();
}

void TimeOrder::believeHeld(Verdict *verdict)
{
    if (m_held.empty())
        return;
    m_fresh = false;
    verdict->newPart = m_any && m_held.front().time < m_lastTime;
    verdict->believed = std::exchange(m_held, {});
    note(verdict->believed.back().time);
}

} // namespace Monitor
