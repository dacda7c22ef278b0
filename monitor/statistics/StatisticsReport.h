// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LineCounts.h"
#include "monitor/statistics/ProfileFits.h"
#include "monitor/statistics/StreamStatistics.h"

#include <QByteArray>

namespace Monitor {

//! Everything that --stats tells.
struct StatisticsReport
{
    QString source;
    LineCounts counts;
    const StreamStatistics *statistics = nullptr;
    std::vector<ProfileFitResult> fits; //!< of the last reading

    //! A table for people, with 10 significant digits.
    QByteArray text() const;
    //! For programs; numbers that there are not are null.
    QByteArray json() const;
};

} // namespace Monitor
