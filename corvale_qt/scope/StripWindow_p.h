// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: which part of the samples a strip chart shows.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/scope/SampleRows_p.h"

namespace Corvale_Qt {

class PlotColumnReader;

//! Scroll bar units for each unit of x, as long as they fit into an int.
constexpr double kScrollUnits = 100000.0;

//! Rounded to what a scroll bar can take; 0 for a number that is not finite or below 0.
int toScrollUnits(double value);

//! What the window of a strip chart depends on, beside the time stamps.
struct StripRequest
{
    int samples = 0; //!< the last row; at least 2
    int first = 1; //!< rows before it are no part of the chart
    int sweepLength = 256; //!< samples across the chart, where there is no width
    double width = 0.0; //!< across the chart, in units of x; 0 or less is none
    bool following = true; //!< the newest sample stays at the right border
    //! While not following: distance from the oldest sample to the left border.
    int scrollValue = 0;
    double scrollUnits = kScrollUnits; //!< units of scrollValue for each unit of x

    bool hasWidth() const;
};

struct StripWindow
{
    double oldest = 0.0; //!< x of the first row of the chart
    double newest = 0.0; //!< x of the last row
    double left = 0.0;
    double right = 0.0;
    RowRange rows; //!< with one sample beyond each border, so that lines run to the canvas' edge

    bool isFinite() const;
};

struct StripScrollBar
{
    int maximum = 0;
    int pageStep = 0;
    int singleStep = 1;
    int value = 0;
    double units = kScrollUnits;
};

StripWindow stripWindow(const PlotColumnReader &reader, const StripRequest &request);

/*! The scroll bar that goes with a window. Where a buffer is too long for the units that an int can hold (some six
    hours), they get coarser by tens; the value keeps the window where it is. */
StripScrollBar stripScrollBar(const StripWindow &window, const StripRequest &request);

} // namespace Corvale_Qt
