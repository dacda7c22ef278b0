// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

class QwtPlot;

namespace Corvale_Qt {

/*! Returns true if \a value is finite and small enough that spans and steps of an axis around it are finite as well. With
    any other number Qwt would add ticks until the memory is full. */
bool isPlottable(double value);

//! The full scale of an axis that shows a fraction of it.
struct PlotRange
{
    double min = -1.0;
    double max = 1.0;

    /*! Sets the limits. Returns false, changes nothing and logs one line that names \a setter if they are not plottable, or if
        newMax is not greater than newMin. */
    bool set(double newMin, double newMax, const char *setter);
    //! Shows \a fraction of the range on \a axis, with ten major steps.
    void apply(QwtPlot *plot, int axis, double fraction) const;
};

} // namespace Corvale_Qt
