// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LineCounts.h"
#include "monitor/readings/LeftOut.h"
#include "monitor/readings/SpotErrors.h"
#include "monitor/statistics/BeamEstimates.h"
#include "monitor/statistics/ProfileFits.h"
#include "monitor/statistics/StreamStatistics.h"

#include <QByteArray>
#include <QJsonObject>

#include <optional>

namespace Monitor {

//! The report of --stats.
struct StatisticsReport
{
    QString source;
    LineCounts counts;
    const StreamStatistics *statistics = nullptr;
    std::vector<ProfileFitResult> fits; //!< of the last reading
    LastEstimates estimates; //!< of the last reading
    LeftOutCount leftOut; //!< of all readings
    std::optional<SpotErrors> spotErrors; //!< nothing if no spots are compared with planned ones
    //! Largest position errors that are in order, in mm; 0 for no tolerance.
    double toleranceX = 0.0;
    double toleranceY = 0.0;

    //! Returns a table for people, with 10 significant digits.
    QByteArray text() const;
    //! Returns the same as JSON; numbers that do not exist are null.
    QByteArray json() const;
    //! Returns what json() writes.
    QJsonObject object() const;
};

} // namespace Monitor
