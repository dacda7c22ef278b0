// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <algorithm>

namespace Monitor {

//! How long to wait before the next attempt: 0.5 s, then twice as long each time, up to 10 s.
class Backoff
{
public:
    static constexpr double first = 0.5;
    static constexpr double longest = 10.0;

    double next()
    {
        const double wait = m_next;
        m_next = std::min(2.0 * m_next, longest);
        return wait;
    }
    void reset() { m_next = first; }

private:
    double m_next = first;
};

} // namespace Monitor
