// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor {

//! Moments of a matrix of intensities. Positions are in cells; 1 is the centre of the first cell.
struct FrameMoments
{
    double total = 0.0;
    double maximum = 0.0;
    int maximumRow = 0;
    int maximumColumn = 0;
    //! Centroids and root mean square widths; NaN if the total is not positive.
    double centroidColumn = 0.0;
    double centroidRow = 0.0;
    double rmsColumn = 0.0;
    double rmsRow = 0.0;

    //! Computes the moments of \a rows times \a columns cells, row after row; cells that are not finite are ignored.
    static FrameMoments of(const double *cells, int rows, int columns);
};

} // namespace Monitor
