// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/proxies/ChannelSource_p.h"

class QIODevice;

namespace Corvale_Qt {

/*! Writes \a channels side by side as CSV: a line of titles, and a line for each of \a rows sample rows, with time and
    value of each channel as its model displays them. False when \a file does not take it all. */
bool writeChannels(QIODevice &file, const QVector<Channel> &channels, int rows);

} // namespace Corvale_Qt
