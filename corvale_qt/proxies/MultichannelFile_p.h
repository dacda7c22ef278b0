// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/proxies/MergedInput_p.h"

class QIODevice;

namespace Corvale_Qt {

/*! Writes \a channels side by side as CSV: a line of titles, then a line for each of \a rows sample rows with the time
    and the value of each channel as its model displays them. Returns false if \a file does not accept everything. */
bool writeChannels(QIODevice &file, const QVector<Channel> &channels, int rows);

} // namespace Corvale_Qt
