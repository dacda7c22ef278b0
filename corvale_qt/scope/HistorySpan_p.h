// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXPlotHistory.h"

#include <vector>

namespace Corvale_Qt {

//! The shortest block of a history that holds the readings of a moment.
struct HistoryPlace
{
    int level = -1; //!< -1 for none
    qint64 block = 0;

    bool isValid() const { return level >= 0; }
    //! Finds the block with the moment \a x, or the nearest one; none in an empty history.
    static HistoryPlace at(const RVXPlotHistory &history, double x);
    //! Returns the last moment of the block before the one with the moment \a x; NaN if that is the oldest one.
    static double momentBefore(const RVXPlotHistory &history, double x);
    //! Returns the first moment of the block after the one with the moment \a x; NaN if that is the newest one.
    static double momentAfter(const RVXPlotHistory &history, double x);
};

/*! What the blocks of a history say of the readings between two moments: those of all blocks that hold readings in between, as
    whole blocks. Number, mean and extremes are exact for the stretch that it names. */
struct HistorySpan
{
    RVXPlotHistory::Block readings; //!< of all blocks together
    qint64 rows = 0; //!< with those that have no reading
    double first = 0.0; //!< x of the first row
    double last = 0.0; //!< x of the last row

    /*! Returns the readings of the channel in \a column from \a left to \a right. Long blocks are read where they lie between both,
        and the shortest ones at the ends, so that a long stretch takes no longer than a short one. */
    static HistorySpan
    between(const RVXPlotHistory &history, int column, double left, double right);
};

} // namespace Corvale_Qt
