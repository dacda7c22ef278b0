// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ChannelLimits.h"

#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr double kUsualHysteresis = 0.02;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

bool isSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

//! Returns the first of two limits that exists; NaN if none does.
double innermost(double warning, double alarm)
{
    return std::isnan(warning) ? alarm : warning;
}

//! Returns how bad a state is, whatever its side.
int severity(LimitState state)
{
    return state == LimitState::Normal ? 0 : isAlarm(state) ? 2 : 1;
}

} // namespace

bool ChannelLimits::isEmpty() const
{
    return std::isnan(lowAlarm) && std::isnan(lowWarning) && std::isnan(highWarning)
        && std::isnan(highAlarm);
}

bool ChannelLimits::isValid() const
{
    const double limits[] = {lowAlarm, lowWarning, highWarning, highAlarm};
    double before = -kInfinity;
    for (int i = 0; i < 4; ++i) {
        if (std::isnan(limits[i]))
            continue;
        constexpr int firstHigh = 2;
        const bool isBetween = i >= firstHigh && before == innermost(lowWarning, lowAlarm);
        if (std::isinf(limits[i]) || limits[i] < before || (isBetween && limits[i] == before))
            return false;
        before = limits[i];
    }
    return std::isnan(hysteresis) || (hysteresis >= 0.0 && std::isfinite(hysteresis));
}

double ChannelLimits::limitOf(LimitState state) const
{
    switch (state) {
    case LimitState::LowWarning:
        return lowWarning;
    case LimitState::HighWarning:
        return highWarning;
    case LimitState::LowAlarm:
        return lowAlarm;
    case LimitState::HighAlarm:
        return highAlarm;
    case LimitState::Normal:
        break;
    }
    return none;
}

LimitState ChannelLimits::stateOf(double reading) const
{
    // Comparisons with a limit that does not exist are false.
    if (reading > highAlarm)
        return LimitState::HighAlarm;
    if (reading < lowAlarm)
        return LimitState::LowAlarm;
    if (reading > highWarning)
        return LimitState::HighWarning;
    return reading < lowWarning ? LimitState::LowWarning : LimitState::Normal;
}

double ChannelLimits::hysteresisAt(LimitState state) const
{
    if (!std::isnan(hysteresis))
        return hysteresis;
    const double distance = innermost(highWarning, highAlarm) - innermost(lowWarning, lowAlarm);
    return kUsualHysteresis * (std::isnan(distance) ? std::abs(limitOf(state)) : distance);
}

bool ChannelLimits::operator==(const ChannelLimits &other) const
{
    return isSame(lowAlarm, other.lowAlarm) && isSame(lowWarning, other.lowWarning)
        && isSame(highWarning, other.highWarning) && isSame(highAlarm, other.highAlarm)
        && isSame(hysteresis, other.hysteresis);
}

LimitWatch::LimitWatch() = default;

LimitWatch::LimitWatch(const ChannelLimits &limits)
{
    if (limits.isValid())
        m_limits = limits;
    setBounds();
}

bool LimitWatch::judge(double time, double reading)
{
    if (std::isnan(reading))
        return false;
    const LimitState next = nextState(reading);
    note(next, time, reading);
    const bool hasChanged = next != m_state;
    m_state = next;
    setBounds();
    return hasChanged;
}

//! Returns the state of a reading. A limit of the present side is left only by the hysteresis or more.
LimitState LimitWatch::nextState(double reading) const
{
    const LimitState now = m_limits.stateOf(reading);
    if (m_state == LimitState::Normal || severity(now) >= severity(m_state)
        || (now != LimitState::Normal && isHigh(now) != isHigh(m_state)))
        return now;
    const bool high = isHigh(m_state);
    const auto isHeld = [&](LimitState state) { // behind its limit by less than the hysteresis
        const double limit = m_limits.limitOf(state);
        const double back = m_limits.hysteresisAt(state);
        return high ? reading > limit - back : reading < limit + back;
    };
    if (isHeld(m_state))
        return m_state;
    const LimitState warning = high ? LimitState::HighWarning : LimitState::LowWarning;
    return isHeld(warning) ? warning : LimitState::Normal;
}

void LimitWatch::note(LimitState next, double time, double reading)
{
    const bool goesOn = m_state != LimitState::Normal && next != LimitState::Normal
        && isHigh(next) == isHigh(m_state);
    m_former = LimitExcursion();
    if (goesOn) {
        const bool isWorse =
            isHigh(next) ? reading > m_excursion.worst : reading < m_excursion.worst;
        m_excursion.worst = isWorse ? reading : m_excursion.worst;
        if (severity(next) > severity(m_excursion.state)) {
            m_excursion.state = next;
            m_excursion.limit = m_limits.limitOf(next);
        }
        return;
    }
    if (m_state != LimitState::Normal)
        m_excursion.ended = time;
    if (next == LimitState::Normal)
        return;
    if (m_state != LimitState::Normal)
        m_former = m_excursion;
    m_excursion = {next, m_limits.limitOf(next), time, ChannelLimits::none, reading};
}

//! Sets the bounds within which a reading changes nothing.
void LimitWatch::setBounds()
{
    m_lowest = -kInfinity;
    m_highest = kInfinity;
    if (m_state != LimitState::Normal) {
        m_lowest = kInfinity; // each reading may be the worst, or the end
        return;
    }
    const auto bound = [](double warning, double alarm, double otherwise) {
        const double limit = innermost(warning, alarm);
        return std::isnan(limit) ? otherwise : limit;
    };
    m_lowest = bound(m_limits.lowWarning, m_limits.lowAlarm, -kInfinity);
    m_highest = bound(m_limits.highWarning, m_limits.highAlarm, kInfinity);
}

} // namespace Corvale_Qt
