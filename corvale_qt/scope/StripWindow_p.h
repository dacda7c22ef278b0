// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/PixelGrid_p.h"
#include "corvale_qt/scope/SampleRows_p.h"

#include <limits>

namespace Corvale_Qt {

class PlotDataReader;

//! Scroll bar units for each unit of x, unless the buffer is too long for an int.
constexpr double kScrollUnits = 100000.0;

//! Rounds a number to a scroll bar value; returns 0 for one that is not finite or below 0.
int toScrollUnits(double value);

//! What the window of a strip chart depends on, apart from the time stamps.
struct StripRequest
{
    int samples = 0; //!< the last row; at least 2
    int first = 1; //!< first row of the chart
    int sweepLength = 256; //!< samples across the chart if it has no width
    double width = 0.0; //!< of the chart in units of x; 0 or less for none
    double remembered = std::numeric_limits<
        double>::infinity(); //!< x of the first block before the rows, if there are blocks
    bool whole = false; //!< the chart shows all samples, whatever its width and its length
    double end = std::numeric_limits<
        double>::quiet_NaN(); //!< x up to which the chart reaches at least; NaN for none
    bool beginsAtFirst = false; //!< the chart shows no time before its first sample
    int pixels = 0; //!< width of the chart in pixels if it moves by whole pixels; 0 if it does not
    bool following = true; //!< the newest sample stays at the right border
    //! While not following: distance from the oldest sample to the left border.
    int scrollValue = 0;
    double scrollUnits = kScrollUnits; //!< units of scrollValue for each unit of x

    bool hasWidth() const;
};

//! The part of the samples that a strip chart shows.
struct StripWindow
{
    double oldest = 0.0; //!< x of the first row of the chart, or of the first block before it
    double firstRow = 0.0; //!< x of the first row of the chart
    double newest = 0.0; //!< x of the last row, or the end that was asked for if that is later
    double left = 0.0;
    double right = 0.0;
    PixelGrid grid; //!< the pixel columns of the window, if it moves by whole pixels
    RowRange
        rows; //!< include one sample beyond each border, so that lines run to the edge of the canvas
};

//! The settings of a scroll bar, in its own units.
struct StripScrollBar
{
    int maximum = 0;
    int pageStep = 0;
    int singleStep = 1;
    int value = 0;
    double units = kScrollUnits; //!< for each unit of x
};

//! Returns the window that a request asks for.
StripWindow stripWindow(const PlotDataReader &reader, const StripRequest &request);

/*! Returns the scroll bar that goes with a window. The units become coarser by factors of ten while the buffer is too
    long for an int (about six hours); the value then leaves the window where it is. */
StripScrollBar stripScrollBar(const StripWindow &window, const StripRequest &request);

/*! Finds the first row that belongs to a strip chart. A step of time backwards by more than the chart shows means that a
    new acquisition has begun: the rows before the step are old and would look live beside those after it. Each row is
    read once. */
class StripStart
{
public:
    //! Returns the first row of the chart, 1 or more.
    int row() const { return m_row; }
    //! Forgets what was found; the next update reads all rows again.
    void restart();
    //! Follows the removal of rows \a start to \a end.
    void rowsRemoved(int start, int end);
    //! Follows an insertion of rows that begins at \a start.
    void rowsInserted(int start);
    //! Reads the rows that were added since the last call. \a request gives the width of the chart.
    void update(const PlotDataReader &reader, const StripRequest &request);

private:
    void look(int row, double x, const PlotDataReader &reader, const StripRequest &request);
    double shownWidth(const PlotDataReader &reader, const StripRequest &request, int lastRow) const;

    int m_row = 1;
    int m_checked = 0; //!< the last row that was read
    // The previous finite time stamp; row 0 for none.
    int m_stampRow = 0;
    double m_stamp = 0.0;
};

} // namespace Corvale_Qt
