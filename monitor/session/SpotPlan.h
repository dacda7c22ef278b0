// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/SpotRows.h"

namespace Monitor {

//! What the spots of a session are compared with.
struct SpotPlan
{
    SpotRows spots; //!< empty if there is no list of planned spots
    //! Largest position errors that are in order, in mm; 0 for no tolerance.
    double toleranceX = 0.0;
    double toleranceY = 0.0;
};

} // namespace Monitor
