// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/BeamEstimate.h"
#include "corvale_qt/numerics/BeamProfile.h"

namespace Corvale_Qt {

constexpr double kHalfMaximumInSigma =
    2.3548200450309493; //!< full width at half maximum: 2 sqrt(2 ln 2) sigma

/*! A Gaussian of height 1, averaged over a cell. The average is the difference of two error functions, so a beam is not widened by
    the cells that it is measured with. */
class CellGaussian
{
public:
    CellGaussian() = default;
    //! Averages over \a width around \a position; a width of 0 takes the value there.
    CellGaussian(double position, double width, double mean, double sigma);

    double value() const { return m_value; }

    struct Derivatives
    {
        double byMean = 0;
        double bySigma = 0;
    };
    //! Computes the derivatives of the value, with exponentials that the value alone does not need.
    Derivatives derivatives() const;

private:
    double upper() const { return m_z + m_width / (2 * m_sigma); }
    double lower() const { return m_z - m_width / (2 * m_sigma); }
    bool isNarrow() const;

    double m_z = 0; //!< distance from the mean, in sigmas
    double m_width = 0;
    double m_sigma = 0;
    double m_integral = 0; //!< over a cell that is not narrow, in sigmas
    double m_value = 0;
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
