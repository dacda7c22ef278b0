// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/RefusedLine.h"

#include <array>

namespace Monitor {

//! How many lines of a stream were read, and what became of them.
struct LineCounts
{
    qint64 lines = 0; //!< all lines, also empty ones and comments
    qint64 readings = 0; //!< readings that were handed on
    std::array<qint64, refusalKinds> refused{}; //!< dropped lines for each value of Refusal

    //! Returns the number of dropped lines, whatever the reason.
    qint64 bad() const
    {
        qint64 bad = 0;
        for (const qint64 each : refused)
            bad += each;
        return bad;
    }
    //! Adds the counts of another stream.
    LineCounts &operator+=(const LineCounts &other);
};

} // namespace Monitor
