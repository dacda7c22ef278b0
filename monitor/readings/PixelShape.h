// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

namespace Monitor {

//! The number of rows and columns in the frames of a pixel stream.
struct PixelShape
{
    int rows = 0;
    int columns = 0;

    /*! Takes the shape from the detector, if the stream describes a matrix, otherwise from the name of the last cell (r12c12). If the names do not tell, it is a square, or a single
        row if the number of cells is not a square number. Returns an empty shape for other kinds of streams. */
    static PixelShape of(const StreamHeader &header);
    //! Returns whether the stream has no frames.
    bool isEmpty() const { return rows == 0; }
};

} // namespace Monitor
