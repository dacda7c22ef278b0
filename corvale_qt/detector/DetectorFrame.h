// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/detector/DetectorLayout.h"
#include "corvale_qt/numerics/BeamProfile.h"
#include "corvale_qt/numerics/ImageMoments.h"

namespace Corvale_Qt {

/*! One frame of readings on the cells of a detector, less the pedestals and over the gains. */
struct CORVALE_QT_EXPORT DetectorFrame
{
    /*! Puts \a count readings on the cells of a layout. A reading that is missing or not finite makes its cell dead. Readings
        beyond those of the layout are left out, and counted. */
    static DetectorFrame of(const DetectorLayout &layout, const double *readings, int count);

    DetectorLayout layout; //!< the layout of the cells
    QVector<double>
        values; //!< for each cell (reading - pedestal) / gain; 0 for cells that are dead or not wired
    QVector<CellFlags>
        flags; //!< for each cell; of() does not look for hot cells. Empty if no cell has a flag
    int leftOut = 0; //!< readings other than 0 that belong to no cell
    double leftOutSum = 0; //!< sum of those readings, as they came

    //! Flags the hot cells of a matrix (see hotCells()). Strips are looked at one plane at a time, by flagHotCells().
    void flagHotCellsOfMatrix();
    /*! Returns the profile along an axis, with rising positions: the strips of a plane, or the sums of the columns or rows of a
        matrix. Dead and hot cells of a matrix are interpolated before, and a sum is saturated if one of its cells is. A detector
        without the axis gives an empty profile. */
    BeamProfile profile(DetectorLayout::Axis axis) const;
    //! Returns the charges of a matrix, with dead and hot cells interpolated; an empty image for other detectors.
    BeamImage image() const;
};

} // namespace Corvale_Qt
