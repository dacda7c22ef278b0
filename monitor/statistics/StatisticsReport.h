// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/LineProtocol.h"
#include "monitor/statistics/StreamStatistics.h"

#include <QByteArray>

namespace Monitor {

//! A Gaussian fit of one profile, positions in channels of the profile from 1.
struct ProfileFitResult
{
    QString profile; //!< "x", "y", or "all" for a stream that is one profile
    bool valid = false;
    double position = 0.0;
    double sigma = 0.0;
    double peak = 0.0;
    double integral = 0.0;
    QString message; //!< why there is no fit
};

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
