// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/BeamEstimate.h"
#include "corvale_qt/numerics/BeamProfile.h"

namespace Corvale_Qt {

/*! What is measured of a flat field, for example of a scattered or scanned beam. Lengths are in the unit of the profile's
    positions; levels are relative to the mean density of the middle tenth of the field.

    Field size, flattened area and penumbra are those of IEC 60976; flatness is the variation over the mean, and symmetry the
    point difference, as AAPM's TG-45 report gives them (Med. Phys. 21, 1093, 1994). No background is subtracted. */
struct CORVALE_QT_EXPORT FlatField
{
    //! Ok if both edges lie on the detector. Flatness and symmetry are also set with PeakOnEdge: of the whole detector.
    EstimateStatus status = EstimateStatus::NotEnoughCells;
    Estimate lowerEdge; //!< position of the 50 % level
    Estimate upperEdge; //!< position of the 50 % level
    Estimate size; //!< distance of the edges
    Estimate centre; //!< middle of the edges
    Estimate
        lowerPenumbra; //!< distance of the 80 % and the 20 % level; NaN if the 20 % level is not on the detector
    Estimate upperPenumbra; //!< the same at the upper edge
    Estimate flatness; //!< (max - min) / (max + min) over the central 80 % of the field
    Estimate symmetry; //!< largest |D(c + x) - D(c - x)| over the same area, relative to the centre
    double level = std::numeric_limits<double>::quiet_NaN(); //!< density of the middle of the field

    /*! Returns whether the field is so flat that its width and its penumbra do not measure a Gaussian: it is larger than
        three penumbras, and its flatness is below 0.2. The width of a Gaussian is 2.1 penumbras. */
    bool isFlatTopped() const;
};

//! Measures a flat field. Dead and hot cells are interpolated.
CORVALE_QT_EXPORT FlatField flatField(const BeamProfile &profile);

} // namespace Corvale_Qt
