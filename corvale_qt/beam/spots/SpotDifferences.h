// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QVector>

#include <limits>
#include <vector>

namespace Corvale_Qt {

//! A spot of a map, as far as it matters for a comparison.
struct ComparedSpot
{
    int row = -1; //!< its row in the model
    double x = 0; //!< position to the right, in the unit of the map
    double y = 0; //!< position upwards, in the unit of the map
    double dose = 0; //!< dose, in any unit
    double sigma = 0; //!< standard deviation, in the unit of the map; above 0
};

/*! What became of one spot: a spot of the map and the spot of the target that belongs to it, or one of them alone. Numbers of
    the one that does not exist are NaN, but its dose is 0. */
struct SpotDifference
{
    int row = -1; //!< row of the spot in the model of the map; -1 if it is missing there
    int targetRow = -1; //!< row of the spot in the model of the target; -1 if it is extra
    double x = 0; //!< position in the map; of a missing spot that in the target
    double y = 0; //!< position in the map; of a missing spot that in the target
    double xOffset =
        std::numeric_limits<double>::quiet_NaN(); //!< position in the map - position in the target
    double yOffset =
        std::numeric_limits<double>::quiet_NaN(); //!< position in the map - position in the target
    double dose = 0; //!< in the map
    double targetDose = 0; //!< in the target
    double doseDifference = 0; //!< dose in the map - dose in the target

    //! Returns whether the target has a spot that the map does not have.
    bool isMissing() const { return row < 0; }
    //! Returns whether the map has a spot that the target does not have.
    bool isExtra() const { return targetRow < 0; }
};

/*! How a map differs from its target, spot by spot and in total.

    Spots belong together by their positions, as in the picture of the difference, where what lies at the same place
    cancels: two spots that are nearest to each other, not further apart than the sigma of the target's spot. After these
    pairs, every spot of the target that is left, in the order of the rows, takes the nearest spot of the map that is left
    within its sigma. So spots that are delivered at one place several times are compared in the order of their rows. */
struct SpotDifferences
{
    bool computed = false; //!< false if there is no target to compare with
    //! The spots of the target in the order of their rows, and then the extra spots of the map in theirs.
    QVector<SpotDifference> spots;
    int matched = 0; //!< number of pairs
    int missing = 0; //!< number of spots that only the target has
    int extra = 0; //!< number of spots that only the map has
    //! Number of spots of the map without a number, or without a sigma above 0. They are not compared.
    int notComparable = 0;
    int targetNotComparable = 0; //!< the same of the target
    double dose = 0; //!< total of the map
    double targetDose = 0; //!< total of the target
    double missingDose = 0; //!< total of the missing spots
    double extraDose = 0; //!< total of the extra spots
    double largestDoseDifference =
        0; //!< of the pairs: the difference with the largest magnitude, with its sign
};

/*! Compares the spots of a map with those of a target, as SpotDifferences describes. All numbers of the spots must be finite
    and each sigma above 0. A comparison of 16 000 spots takes some tens of milliseconds, and less than a second even if all
    lie at one place. */
CORVALE_QT_EXPORT SpotDifferences compareSpots(const QVector<ComparedSpot> &map,
                                               const QVector<ComparedSpot> &target);
/*! Compares spots that the caller has paired, by their numbers for example: \a matched has, for each spot of the target, the
    index in \a map of the spot that belongs to it, or -1. No index may occur twice. */
CORVALE_QT_EXPORT SpotDifferences compareSpots(const QVector<ComparedSpot> &map,
                                               const QVector<ComparedSpot> &target,
                                               const std::vector<int> &matched);

} // namespace Corvale_Qt
