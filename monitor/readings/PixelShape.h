// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

namespace Monitor {

//! The shape of a pixel stream's frames.
struct PixelShape
{
    int rows = 0;
    int columns = 0;

    //! From the names of the last cell (r12c12); a square where the names say nothing. No rows for other layouts.
    static PixelShape of(const StreamHeader &header);
    bool isEmpty() const { return rows == 0; }
};

} // namespace Monitor
