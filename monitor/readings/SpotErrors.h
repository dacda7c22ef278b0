// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/SpotRows.h"
#include <corvale_qt/beam/spots/PositionErrorStatistics.h>
#include <corvale_qt/beam/spots/SpotDifferences.h>

#include <vector>

namespace Monitor {

/*! How measured spots differ from planned ones.

    If both lists number their spots, those with the same beam, layer and number belong together. Otherwise those do that lie
    nearest to each other, as SpotDifferences describes. In a list with planned positions beside the measured ones, each row
    is a pair. */
struct SpotErrors
{
    //! A measured spot that has been planned.
    struct Spot
    {
        int row = 0; //!< in the measured list, from 0
        double xError = 0.0; //!< measured less planned, mm
        double yError = 0.0;
        double plannedX = 0.0; //!< mm
        double plannedY = 0.0;
        double number = 0.0; //!< NaN if the list does not number its spots
        double energy = 0.0; //!< MeV; NaN if it is not known
    };

    std::vector<Spot> spots; //!< in the order of the measured list
    Corvale_Qt::SpotDifferences differences; //!< of the doses, and which spots only one list has

    //! Returns whether a list of spots holds planned positions beside the measured ones.
    static bool isPlanned(const StreamHeader &header);
    //! Compares a list with a plan.
    static SpotErrors of(const SpotRows &measured, const SpotRows &planned);
    //! Compares the measured with the planned positions of one list.
    static SpotErrors ofOneList(const SpotRows &list);

    //! Returns the numbers of the position errors; without a tolerance (0), none is outside.
    Corvale_Qt::PositionErrorStatistics statistics(double toleranceX, double toleranceY) const;
};

} // namespace Monitor
