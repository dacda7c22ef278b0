// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor {

//! Moments of a matrix of intensities. Positions count cells from 1, the centre of the first cell.
struct FrameMoments
{
    double total = 0.0;
    double maximum = 0.0;
    int maximumRow = 0;
    int maximumColumn = 0;
    double centroidColumn = 0.0; //!< NaN, as those below, where the total is not positive
    double centroidRow = 0.0;
    double rmsColumn = 0.0;
    double rmsRow = 0.0;

    //! Of \a rows times \a columns cells, row after row; cells that are not finite count as nothing.
    static FrameMoments of(const double *cells, int rows, int columns);
};

} // namespace Monitor
