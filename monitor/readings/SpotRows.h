// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/ReadingBlock.h"
#include "monitor/readings/StreamHeader.h"

#include <limits>

namespace Monitor {

//! A list of beam spots.
struct SpotRows
{
    //! The most spots that are kept; a plan has some thousands.
    static constexpr int most = 100000;

    StreamHeader header;
    ReadingBlock readings;

    int size() const { return readings.size(); }
    //! Returns whether the list has positions and doses.
    bool isUsable() const
    {
        return header.indexOf(QStringLiteral("x")) >= 0 && header.indexOf(QStringLiteral("y")) >= 0
            && header.indexOf(QStringLiteral("mu")) >= 0;
    }
    //! Returns a value of a spot; NaN if \a channel is -1.
    double value(int row, int channel) const
    {
        return channel < 0 ? std::numeric_limits<double>::quiet_NaN()
                           : readings.values(row)[channel];
    }
};

} // namespace Monitor
