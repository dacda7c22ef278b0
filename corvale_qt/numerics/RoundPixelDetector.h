// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

namespace Corvale_Qt {

/*! The wiring of the round pixel-matrix detector: which of a frame's 128 readings comes from which pixel.

    The 120 pixels lie on a square of 12 x 12 cells, without its corners. Each quarter of the area has a connector
    of 32 pins: 0 to 31 the upper right quarter, 32 to 63 the upper left, 64 to 95 the lower left, 96 to 127 the lower
    right. The first 30 pins of a connector count along lines of 6, 6, 6, 5, 4 and 3 pixels, beginning at the middle of
    the detector; the last two are not wired. In the upper right quarter the lines run to the right, one above the other;
    each of the following quarters is the one before it, turned by 90 degrees counter-clockwise. */
namespace RoundPixelDetector {

constexpr int kSide = 12; //!< rows, and columns, of the square
constexpr int kCells = kSide * kSide; //!< cells of the square, with or without a pixel
constexpr int kReadings = 128; //!< readings of a frame, wired or not
constexpr int kNotWired = -1; //!< stands for the reading of a cell without a pixel

/*! Returns the index of the reading that is wired to a cell, 0 to 127; `kNotWired` if the cell has no pixel or is
    not on the square. Rows and columns count from 0 at the top left. */
CORVALE_QT_EXPORT int readingAt(int row, int column);

} // namespace RoundPixelDetector

} // namespace Corvale_Qt
