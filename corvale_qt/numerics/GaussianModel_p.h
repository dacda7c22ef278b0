// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/BeamEstimate.h"
#include "corvale_qt/numerics/BeamProfile.h"

namespace Corvale_Qt {

constexpr double kHalfMaximumInSigma =
    2.3548200450309493; //!< full width at half maximum: 2 sqrt(2 ln 2) sigma

//! A Gaussian of height 1, averaged over a cell, and its derivatives.
struct CellGaussian
{
    double value = 0;
    double byMean = 0;
    double bySigma = 0;

    /*! Averages over \a width around \a position; a width of 0 takes the value there. The average is the difference of two
        error functions, so a beam is not widened by the cells that it is measured with. */
    static CellGaussian over(double position, double width, double mean, double sigma);
};

//! Cells that no fit may use.
constexpr CellFlags kUntrusted = CellFlag::Dead | CellFlag::Hot | CellFlag::Saturated;

/*! Compares the readings with the Gaussian of an estimate, of which \a parameters were fitted. Fields of the quality that
    are not known stay NaN. */
FitQuality qualityOf(const BeamProfile &profile, const BeamEstimate &estimate, int parameters);

//! Returns an estimate without numbers.
BeamEstimate failed(EstimateStatus status);

//! Returns the cell of the largest density, the first one of equals; 0 without cells.
int densestCell(const BeamProfile &profile);

//! Returns the median density of \a atEachEnd cells at each end, of half of the cells at most; 0 without cells.
double endBackground(const BeamProfile &profile, int atEachEnd);

} // namespace Corvale_Qt
