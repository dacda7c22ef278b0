// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/SweepTrigger.h"

#include <cmath>

namespace Corvale_Qt {

bool SweepTrigger::isValid() const
{
    return channel >= 1 && std::isfinite(level) && hysteresis >= 0.0 && std::isfinite(hysteresis)
        && shareBefore >= 0.0 && shareBefore <= 1.0 && holdOff >= 0.0 && std::isfinite(holdOff);
}

bool SweepTrigger::operator==(const SweepTrigger &other) const
{
    return mode == other.mode && channel == other.channel && level == other.level
        && edge == other.edge && hysteresis == other.hysteresis && shareBefore == other.shareBefore
        && holdOff == other.holdOff;
}

TriggerSearch::TriggerSearch(const SweepTrigger &trigger)
    : m_trigger(trigger)
{
}

bool TriggerSearch::add(double x, double reading, bool mayTrigger)
{
    const bool rises = m_wasBelow && reading >= m_trigger.level;
    const bool falls = m_wasAbove && reading <= m_trigger.level;
    m_wasBelow = (m_wasBelow && !rises) || reading < m_trigger.level - m_trigger.hysteresis;
    m_wasAbove = (m_wasAbove && !falls) || reading > m_trigger.level + m_trigger.hysteresis;

    const bool isEdge = (rises && m_trigger.edge != SweepTrigger::Edge::Falling)
        || (falls && m_trigger.edge != SweepTrigger::Edge::Rising);
    const bool isHeldOff = m_hasTriggered && x - m_triggeredAt < m_trigger.holdOff
        && x >= m_triggeredAt; // time may begin anew
    if (!mayTrigger || !isEdge || isHeldOff)
        return false;
    m_hasTriggered = true;
    m_triggeredAt = x;
    return true;
}

void TriggerSearch::forgetSide()
{
    m_wasBelow = false;
    m_wasAbove = false;
}

} // namespace Corvale_Qt
