// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/FitParameters.h"
#include "monitor/readings/LeftOut.h"
#include <corvale_qt/detector/BeamVerdict.h>
#include <corvale_qt/numerics/BeamEstimate.h>
#include <corvale_qt/numerics/ImageMoments.h>

#include <QString>

#include <vector>

namespace Monitor {

class StreamStatistics;

//! What one estimator finds in one profile.
struct PlaneEstimate
{
    QString plane; //!< "x", "y", or "all" for a stream that is one profile
    QString estimator; //!< for example "least_squares"
    Corvale_Qt::BeamEstimate estimate;
    Corvale_Qt::BeamVerdict verdict;
    QString unit; //!< of position and sigma; "cells" where the detector is not described
};

//! The estimates of a reading, and what was left out of them.
struct LastEstimates
{
    std::vector<PlaneEstimate> planes;
    LeftOut leftOut; //!< readings other than 0 that belong to no cell
    //! The second moments of a matrix, less the background of its corners; not usable for other detectors.
    Corvale_Qt::ImageMoments image;
    Corvale_Qt::VerdictLimits limits; //!< by which the estimates are judged
    QString unit; //!< of the moments' lengths; "cells" where the detector is not described
};

/*! Returns all estimates of the latest reading, on the detector of the stream. Without one, positions are counted in cells from 1,
    and strips are shared evenly between x and y. Hot cells are looked for. There are no estimates of spots, of detectors without
    places, and of channels that nothing places, unless \a channelsAreProfile says that they are neighbours in their order. \a chosenLimits judge estimates on a detector that
    states no limits of its own; regression and centre of gravity use the \a parameters. */
LastEstimates estimatesOfLastReading(const StreamStatistics &statistics,
                                     bool channelsAreProfile = false,
                                     const Corvale_Qt::VerdictLimits &chosenLimits = {},
                                     const FitParameters &parameters = {});

/*! Returns the least squares fits of the latest reading alone, one for each plane: what position and sigma over time are made of. The
    arguments are those of estimatesOfLastReading(). */
std::vector<PlaneEstimate> fittedPlanes(const StreamStatistics &statistics,
                                        bool channelsAreProfile = false,
                                        const Corvale_Qt::VerdictLimits &chosenLimits = {});
/*! Returns the integral of an estimate's Gaussian above its background, height x sigma x sqrt(2 pi), in the unit of the readings, or
    in that unit times the one of the positions if the readings are densities; NaN if the estimate has failed. */
double integralOf(const Corvale_Qt::BeamEstimate &estimate);

} // namespace Monitor
