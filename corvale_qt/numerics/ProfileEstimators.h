// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/BeamEstimate.h"
#include "corvale_qt/numerics/BeamProfile.h"

namespace Corvale_Qt {

/*! \file
    Estimates of a beam's position and width from one profile. docs/physics.md gives the formulas and what they assume.

    Every estimate also has a Gaussian and says how well it describes the readings (FitQuality). Standard errors come from
    the noise of the readings, where it is known; the least squares fit takes them from its residuals otherwise. */

//! Which cells centreOfGravity() uses.
struct CORVALE_QT_EXPORT CentreOfGravityOptions
{
    double thresholdFraction = 0; //!< densities up to this share of the largest count as 0
    int halfWidth =
        -1; //!< cells on each side of the peak that are used; all cells if it is negative
};

//! What logParabolaGaussian() uses, as the regression of the histogram does.
struct CORVALE_QT_EXPORT LogParabolaOptions
{
    double thresholdFraction = 0; //!< the run around the peak ends below this share of the peak
    int halfWidth = 1024; //!< cells on each side of the peak that are used
    double minimumPeak = 0; //!< a lower density is not fitted
    int weightPower = 2; //!< the weight of a cell is (density / peak) to this power
};

//! The background that leastSquaresGaussian() fits beside the Gaussian.
enum class FitBackground {
    Constant,
    Linear, //!< for cameras whose dark level rises from one side to the other
};

/*! Computes the centre of gravity and the root mean square width of the charge. The Gaussian has the same charge, and no
    background. Dead and hot cells are interpolated. */
CORVALE_QT_EXPORT BeamEstimate centreOfGravity(const BeamProfile &profile,
                                               const CentreOfGravityOptions &options = {});
//! Finds the Gaussian through the largest density and its two neighbours. Dead and hot cells are interpolated.
CORVALE_QT_EXPORT BeamEstimate threePointGaussian(const BeamProfile &profile);
/*! Fits a Gaussian without background to the logarithms of the densities around the peak (Caruana's method with the weights
    of Guo, IEEE Signal Processing Magazine 28(5), 2011). Dead, hot and saturated cells are left out. With uniform cells that
    are all trusted, the numbers are those of the profile display. */
CORVALE_QT_EXPORT BeamEstimate logParabolaGaussian(const BeamProfile &profile,
                                                   const LogParabolaOptions &options = {});
/*! Fits a Gaussian with a background to the readings by least squares (Levenberg and Marquardt's method), with the
    same weight for every reading. The Gaussian is averaged over each cell. Dead, hot and saturated cells are left out. */
CORVALE_QT_EXPORT BeamEstimate
leastSquaresGaussian(const BeamProfile &profile,
                     FitBackground background = FitBackground::Constant);
/*! Interpolates the full width at half maximum, above the median of the outermost cells. The position is its middle, and
    sigma is the width over 2 sqrt(2 ln 2). Dead and hot cells are interpolated. */
CORVALE_QT_EXPORT BeamEstimate halfMaximumWidth(const BeamProfile &profile);
/*! Computes the second moment width (D4sigma) as ISO 11146 defines it: less the background of the outermost cells, over an
    area of three beam widths (6 sigma to each side), iterated. Dead and hot cells are interpolated. */
CORVALE_QT_EXPORT BeamEstimate secondMomentWidth(const BeamProfile &profile);

} // namespace Corvale_Qt
