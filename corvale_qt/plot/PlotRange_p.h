// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

class QwtPlot;

namespace Corvale_Qt {

/*! A number that an axis can be built around: finite, and far enough from the largest double for spans and
    steps to be finite as well. Anything else would let Qwt count ticks until the memory is full. */
bool isPlottable(double value);

/*! Full scale of an axis that shows a fraction of it. */
struct PlotRange
{
    double min = -1.0;
    double max = 1.0;

    //! Takes the limits. False, with one debug line that names \a setter, where they are no range.
    bool set(double newMin, double newMax, const char *setter);
    //! Shows \a fraction of the range on \a axis, with ten major steps.
    void apply(QwtPlot *plot, int axis, double fraction) const;
};

} // namespace Corvale_Qt
