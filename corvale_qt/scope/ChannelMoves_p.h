// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QStringList>

#include <functional>

namespace Corvale_Qt {

//! Returns the number that a channel, counted from 1, has after a change of the channels; 0 if it has gone.
using ChannelMoves = std::function<int(int channel)>;

//! Returns the moves when channels \a first to \a last were inserted.
ChannelMoves movesOfInsertion(int first, int last);
//! Returns the moves when channels \a first to \a last were removed.
ChannelMoves movesOfRemoval(int first, int last);
//! Returns the moves when channels \a first to \a last were moved in front of \a before, counted before the move.
ChannelMoves movesOfMove(int first, int last, int before);
/*! Returns the moves from channels with the names \a old to those with the names \a now: a channel follows its name, and of
    several with one name the first follows the first, and so on. One whose name is not there any more keeps its number, as if it
    had been renamed, unless another one has come there. No two channels get one number. Returns null if no channel moves. */
ChannelMoves movesOfNames(const QStringList &old, const QStringList &now);

} // namespace Corvale_Qt
