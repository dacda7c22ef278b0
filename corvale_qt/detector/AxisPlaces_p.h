// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/detector/DetectorDescription.h"

namespace Corvale_Qt {

//! The places of the cells of an axis that has been checked, in the order of the cells.
struct AxisPlaces
{
    QVector<double> positions;
    QVector<double> widths; //!< over which a cell collects; 0 for a cell that samples a density
    QVector<double> intervals; //!< from the middle before a cell to the middle behind it
    double lower = 0;
    double upper = 0;

    /*! Computes the places of a checked axis. A cell whose width is not stated is as wide as its interval; if readings are
        densities, it is a thin wire. */
    static AxisPlaces of(const DetectorAxis &axis, bool density);
};

//! Returns the position of cell \a index of a checked axis; the index may lie between cells.
double axisPosition(const DetectorAxis &axis, double index);

//! Returns whether a text has at most \a longest characters, and a file gives it back as it was written.
bool isPlainText(const QString &text, int longest);

//! Returns what is wrong with an axis called \a name ("x" or "y") of at most \a most cells; an empty fault if nothing is.
DetectorFault axisFault(const DetectorAxis &axis, const QString &name, int most);

} // namespace Corvale_Qt
