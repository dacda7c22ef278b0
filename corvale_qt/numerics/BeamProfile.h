// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QFlags>
#include <QVector>

#include <limits>

namespace Corvale_Qt {

//! Why the reading of a cell is not trusted.
enum class CellFlag {
    Dead = 1, //!< the reading means nothing
    Saturated = 2, //!< the charge was larger than the reading
    Hot = 4, //!< the reading stands alone above its neighbours
};
Q_DECLARE_FLAGS(CellFlags, CellFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(CellFlags)

/*! The readings of a row of cells at any positions, which need not be uniform.

    All lists have one entry for each cell. Lengths are in one unit, which the results have as well. */
struct CORVALE_QT_EXPORT BeamProfile
{
    //! Returns a profile of charges in cells that touch each other, at a uniform \a pitch from the position \a first on.
    static BeamProfile
    uniform(const QVector<double> &readings, double pitch = 1.0, double first = 0.0);

    QVector<double> positions; //!< middle of the range over which each cell collects, rising
    QVector<double> intervals; //!< length of the axis that each cell stands for, above 0
    QVector<double> widths; //!< length over which each cell collects; 0 for a sample at a point
    QVector<double> readings; //!< less their pedestal, over their gain
    //! Reading of each cell at a density of 1: its width for charges, 1 for densities. Above 0.
    QVector<double> scales;
    QVector<CellFlags> flags; //!< empty if no cell has a flag
    //! Standard deviation of a reading without beam; NaN if it is not known.
    double noise = std::numeric_limits<double>::quiet_NaN();

    //! Share of the charge in dead and hot cells that were replaced before this profile was summed up from a matrix.
    double shareOfHoles = 0;

    //! Returns the number of cells.
    int count() const { return readings.size(); }
    /*! Returns whether all lists have the same length, the positions rise, the lengths are usable and every reading is
        finite. The estimators refuse other profiles. */
    bool isUsable() const;
    //! Returns whether the cells have the same width and distance, to a billionth.
    bool isUniform() const;
    //! Returns the reading of a cell per length.
    double density(int cell) const { return readings[cell] / scales[cell]; }
    //! Returns the charge on the part of the axis that a cell stands for.
    double charge(int cell) const { return density(cell) * intervals[cell]; }
    //! Returns whether a cell has one of the flags.
    bool has(int cell, CellFlags which) const { return !flags.isEmpty() && (flags[cell] & which); }
    //! Sets a flag of a cell.
    void setFlag(int cell, CellFlag flag);
    //! Returns the lowest position that the profile covers; 0 without cells.
    double lowerEdge() const;
    //! Returns the highest position that the profile covers; 0 without cells.
    double upperEdge() const;
    /*! Returns the profile with the densities of dead and hot cells interpolated between the nearest cells that are
        neither. A profile of such cells only is returned unchanged. */
    BeamProfile withoutHoles() const;
};

} // namespace Corvale_Qt
