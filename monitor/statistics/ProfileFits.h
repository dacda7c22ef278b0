// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

#include <vector>

namespace Monitor {

class StreamStatistics;

//! A Gaussian fit of one profile, positions in channels of the profile from 1.
struct ProfileFitResult
{
    QString profile; //!< "x", "y", or "all" for a stream that is one profile
    bool valid = false;
    double position = 0.0;
    double sigma = 0.0;
    double peak = 0.0;
    double integral = 0.0; //!< of the fitted Gaussian over the channels
    QString message; //!< why there is no fit
};

/*! What the window's histogram would show of the latest reading: a Gaussian for each profile of strips, one for all
    channels of a stream that has enough of them to be a profile, none for pixels and spots. */
std::vector<ProfileFitResult> fitsOfLastReading(const StreamStatistics &statistics);

} // namespace Monitor
