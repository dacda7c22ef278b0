// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <algorithm>

namespace Monitor {

//! The waiting times between attempts to connect: 0.5 s, then twice as long each time, up to 10 s.
class Backoff
{
public:
    static constexpr double first = 0.5;
    static constexpr double longest = 10.0;

    //! Returns the seconds to wait before the next attempt.
    double next()
    {
        const double wait = m_next;
        m_next = std::min(2.0 * m_next, longest);
        return wait;
    }
    //! Starts over with the first waiting time.
    void reset() { m_next = first; }

private:
    double m_next = first;
};

} // namespace Monitor
