// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtGlobal>

#include <limits>
#include <utility>

namespace Monitor {

//! Admits a limited number of things per second and counts the others, so that a flood costs no more than counting.
class FloodGate
{
public:
    explicit FloodGate(int aSecond)
        : m_aSecond(aSecond)
    {
    }

    //! Returns whether something that happens at \a now seconds is admitted.
    bool admits(double now)
    {
        if (isOver(now)) {
            m_began = now;
            m_admitted = 0;
        }
        const bool admitted = m_admitted < m_aSecond;
        ++(admitted ? m_admitted : m_heldBack);
        return admitted;
    }
    //! Returns, once, how many were held back in a second that is over; 0 while the second lasts.
    qint64 takeHeldBack(double now) { return isOver(now) ? std::exchange(m_heldBack, 0) : 0; }

private:
    bool isOver(double now) const { return now - m_began >= 1.0; }

    const int m_aSecond;
    double m_began = -std::numeric_limits<double>::infinity();
    qint64 m_admitted = 0;
    qint64 m_heldBack = 0;
};

} // namespace Monitor
