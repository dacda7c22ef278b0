// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <cmath>
#include <limits>

namespace Corvale_Qt {

//! How an estimate of a beam's position and width ended.
enum class EstimateStatus {
    Ok,
    NotUsable, //!< the profile is not a usable one (see BeamProfile::isUsable())
    NotEnoughCells, //!< fewer cells that can be trusted than the estimate needs
    NoSignal, //!< no charge above the background
    PeakOnEdge, //!< the peak, or a side of it, lies at the edge of the detector
    NoRealWidth, //!< the width is not a positive, finite number
    NotConverged, //!< the iteration did not come to an end
};

//! A number with its standard error.
struct CORVALE_QT_EXPORT Estimate
{
    double value = std::numeric_limits<double>::quiet_NaN(); //!< NaN if there is none
    double error = std::numeric_limits<double>::quiet_NaN(); //!< NaN if it is not known

    //! Returns whether the standard error is known.
    bool hasError() const { return !std::isnan(error); }
};

/*! How well the Gaussian of an estimate describes the readings. Cells that are dead, hot or saturated are left out. NaN
    stands for what is not known. */
struct CORVALE_QT_EXPORT FitQuality
{
    //! Sum of ((reading - model) / noise)^2 over the degrees of freedom, where the noise is known.
    double reducedChiSquare = std::numeric_limits<double>::quiet_NaN();
    //! 1 - sum of (density - model)^2 / sum of (density - mean density)^2.
    double rSquared = std::numeric_limits<double>::quiet_NaN();
    /*! Root mean square of (density - model), over the largest density above the background. It is taken over all cells
        and over those within 3 sigma, and the larger of the two counts: a wide detector must not dilute it. */
    double residualRms = std::numeric_limits<double>::quiet_NaN();
    int degreesOfFreedom = 0; //!< cells that were compared, less the fitted parameters
};

/*! Position and width of a beam, and the Gaussian that goes with them: background + slope x (x - position) + height
    x exp(-(x - position)^2 / (2 sigma^2)), as a density. Lengths are in the unit of the profile's positions. */
struct CORVALE_QT_EXPORT BeamEstimate
{
    EstimateStatus status = EstimateStatus::NotEnoughCells; //!< the numbers hold only with Ok
    Estimate position; //!< centre of the beam
    Estimate sigma; //!< standard deviation
    Estimate height; //!< density at the position, above the background
    Estimate background; //!< density at the position
    double slope = 0; //!< change of the background over a length of 1
    FitQuality quality; //!< how well the Gaussian describes the readings
    //! Whether the area that the estimate asks for was cut at the edge of the detector.
    bool clipped = false;

    //! Returns whether the estimate succeeded.
    bool isOk() const { return status == EstimateStatus::Ok; }
    //! Returns the density of the background at a place; 0 if the estimate subtracts none.
    double backgroundAt(double place) const
    {
        return std::isnan(background.value) ? 0.0
                                            : background.value + slope * (place - position.value);
    }
    //! Returns the density of the Gaussian and its background at a place.
    double densityAt(double place) const
    {
        const double inSigma = (place - position.value) / sigma.value;
        return backgroundAt(place) + height.value * std::exp(-0.5 * inSigma * inSigma);
    }
};

} // namespace Corvale_Qt
