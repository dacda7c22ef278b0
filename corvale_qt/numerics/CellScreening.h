// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/BeamProfile.h"

#include <vector>

namespace Corvale_Qt {

/*! When a cell counts as hot: it lies above all its neighbours, and above their median both by \a inNoise times the noise
    and by \a inSpread times the distance of the highest neighbour from the median.

    The neighbours are the two cells on each side in a profile, and the eight around it in a matrix. A beam narrower than 0.55
    cells looks like a hot cell and is taken for one. */
struct CORVALE_QT_EXPORT HotCellLimits
{
    double inNoise = 8; //!< least excess over the median, in noises
    double inSpread = 10; //!< least excess, in distances of the highest neighbour from the median
};

//! Returns the indexes of the hot cells of a matrix, row after row.
CORVALE_QT_EXPORT std::vector<int>
hotCells(const double *cells, int rows, int columns, const HotCellLimits &limits = {});
//! Flags the hot cells of a profile. Dead cells are no neighbours.
CORVALE_QT_EXPORT void flagHotCells(BeamProfile &profile, const HotCellLimits &limits = {});
/*! Returns the standard deviation of a reading, estimated from the second differences of neighbouring densities: 1.4826 times
    the median of their sizes over sqrt(6). A smooth beam hardly contributes. Returns 0 with fewer than five trusted cells. */
CORVALE_QT_EXPORT double estimatedNoise(const BeamProfile &profile);

} // namespace Corvale_Qt
