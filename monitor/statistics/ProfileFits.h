// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/FitParameters.h"

#include <QString>

#include <vector>

namespace Monitor {

class StreamStatistics;
struct LastEstimates;

//! A Gaussian fit of one profile. Positions are in channels; 1 is the centre of the profile's first channel.
struct ProfileFitResult
{
    QString profile; //!< "x", "y", or "all" for channels that nothing places
    bool valid = false;
    double position = 0.0;
    double sigma = 0.0;
    double peak = 0.0;
    double integral = 0.0; //!< integral of the fitted Gaussian over the channels
    QString message; //!< why there is no fit, or why it does not describe the readings
};

/*! Returns the fits that the window's histogram would show of the latest reading: one for each plane of strips, and one for
    all channels that nothing places if \a channelsAreProfile says that they are neighbours in their order. There are none
    for pixels and spots. */
std::vector<ProfileFitResult> fitsOfLastReading(const StreamStatistics &statistics,
                                                bool channelsAreProfile = false,
                                                const FitParameters &parameters = {});

//! Takes a fit for not valid, with the reason as its message, where the regression of the same profile is judged not valid.
void applyVerdicts(const LastEstimates &estimates, std::vector<ProfileFitResult> &fits);

} // namespace Monitor
