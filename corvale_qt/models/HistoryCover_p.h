// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXPlotHistory.h"

#include <QVector>

namespace Corvale_Qt {

//! Consecutive blocks of a level of a history; \a end is the number after that of the last one.
struct HistoryPiece
{
    int level = 0;
    qint64 first = 0;
    qint64 end = 0;

    qint64 count() const { return end - first; }
};

/*! Finds the blocks that a window from \a left to \a right in x shows: those in it, and one beyond either edge. The pieces
    follow each other in time, and no row is left out or counted twice.

    They have the finest level of which at most \a most blocks do. Where that one does not reach back, those above it follow;
    where the newest rows do not fill its blocks yet, those below it. Times are searched by bisection. */
QVector<HistoryPiece>
coverByHistory(const RVXPlotHistory &history, double left, double right, qint64 most);

//! Returns the number of blocks of all pieces.
qint64 blocksOf(const QVector<HistoryPiece> &pieces);

} // namespace Corvale_Qt
