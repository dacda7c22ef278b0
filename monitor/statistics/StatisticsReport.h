// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LineCounts.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/ProfileFits.h"
#include "monitor/statistics/StreamStatistics.h"

#include <QByteArray>

namespace Monitor {

//! The report of --stats.
struct StatisticsReport
{
    QString source;
    LineCounts counts;
    const StreamStatistics *statistics = nullptr;
    std::vector<ProfileFitResult> fits; //!< of the last reading
    LastEstimates estimates; //!< of the last reading

    //! Returns a table for people, with 10 significant digits.
    QByteArray text() const;
    //! Returns the same as JSON; numbers that do not exist are null.
    QByteArray json() const;
};

} // namespace Monitor
