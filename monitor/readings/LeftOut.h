// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

//! Readings of a frame that belong to no cell, and what they add up to.
struct LeftOut
{
    //! What the count is about.
    enum class What {
        Readings, //!< readings that the detector has no cell for
        Cells, //!< cells of the stream that the display's detector has no wire for
    };

    What what = What::Readings;
    int count = 0;
    double sum = 0.0; //!< in the unit of the readings
    QString unit; //!< may be empty

    //! Returns one line, for example "24 cells are not wired: 100 nC left out"; empty if nothing is left out.
    QString text() const;
};

} // namespace Monitor
