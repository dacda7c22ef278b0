// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/detector/DetectorFrame.h"

#include <QString>

namespace Corvale_Qt {

/*! Writes a frame as CSV, with numbers that are read back exactly. Strips have one line for each strip: axis, position, width,
    value, flags. A matrix has a line with the positions of its columns, and then for each row its position and its values; cells
    that are not wired or dead are empty. Comment lines at the beginning name detector, unit and time. Returns false if the file
    could not be written; a file of that name is then as it was. */
bool writeFrame(const DetectorFrame &frame, double time, const QString &unit, const QString &file);

} // namespace Corvale_Qt
