// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/BeamProfile.h"

#include <vector>

namespace Corvale_Qt {

/*! When a cell counts as hot.

    On even ground: it lies above all its neighbours, and above their median both by \a inNoise times the noise and by \a
    inSpread times the distance of the highest neighbour from the median, and by \a inLevel times the highest neighbour. The
    neighbours are the two cells on each side in a profile, and the eight around it in a matrix.

    On the flank of a beam: the two cells before it and the two behind it rise or fall steadily, within three times the
    noise; it lies above those beside it by \a inNoise times the noise, and reads \a onFlank times what they let expect
    between them (their geometric mean, or the higher one where suppressed readings hide both the noise and the foot of the
    flank). In a matrix this holds along its row or its column, and it lies that much above all eight neighbours.

    A beam narrower than 0.55 cells looks like a hot cell and is taken for one. At the top of a beam only a cell that
    stands far out is found. */
struct CORVALE_QT_EXPORT HotCellLimits
{
    double inNoise = 8; //!< least excess over the median, in noises
    double inSpread = 10; //!< least excess, in distances of the highest neighbour from the median
    double inLevel =
        0.2; //!< least excess, in readings of the highest neighbour; more than gains differ
    double onFlank = 2; //!< least reading, in readings that are expected between its neighbours
};

//! Returns the indexes of the hot cells of a matrix, row after row.
CORVALE_QT_EXPORT std::vector<int>
hotCells(const double *cells, int rows, int columns, const HotCellLimits &limits = {});
//! Flags the hot cells of a profile. Dead cells do not count as neighbours.
CORVALE_QT_EXPORT void flagHotCells(BeamProfile &profile, const HotCellLimits &limits = {});
/*! Returns the standard deviation of a reading, estimated from the second differences of neighbouring densities: 1.4826 times
    the median of their sizes over sqrt(6). A smooth beam hardly contributes. Returns 0 with fewer than five trusted cells. */
CORVALE_QT_EXPORT double estimatedNoise(const BeamProfile &profile);

} // namespace Corvale_Qt
