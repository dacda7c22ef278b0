// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cmath>
#include <limits>

namespace Monitor {

/*! How far a recording is played that is played together with others: all parts before one of them, and that one up to a position that
    the others share. */
struct PlayLimit
{
    int part = -1;
    double until = -std::numeric_limits<double>::infinity(); //!< position
    double shift = 0.0; //!< what is added to a time of the part for its position

    /*! Returns the position of a time, to a nanosecond: decimals that state the same moment with different origins are no longer
        different in their last bits. */
    static double position(double time, double shift)
    {
        constexpr double nanoseconds = 1e9;
        return std::round((time + shift) * nanoseconds) / nanoseconds;
    }
    //! Returns whether a reading of that part and that time is to be played.
    bool reaches(int ofPart, double time) const
    {
        return ofPart == part ? position(time, shift) <= until : ofPart < part;
    }
};

} // namespace Monitor
