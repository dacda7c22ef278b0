// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPointF>

/*! Positions of the matrix detector's pixels, from the rule of its connectors and independent of the library's table.

    Each quarter of the round area has a connector of 32 pins, of which 30 are used. They count along lines of 6, 6,
    6, 5, 4 and 3 pixels, beginning at the middle of the detector. The first connector belongs to the upper right
    quarter, whose lines run to the right, one above the other. Each further quarter is the one before it, turned by
    90 degrees counter-clockwise. */
namespace PixelWiring {

//! Returns whether reading 0 to 127 of a frame is wired to a pixel.
inline bool isUsed(int reading)
{
    return reading % 32 < 30;
}

//! Returns the middle of a reading's pixel, in pixels from the middle of the detector, X to the right and Y upwards.
inline QPointF placeOf(int reading)
{
    int place = reading % 32;
    int line = 0;
    for (int length : {6, 6, 6, 5, 4, 3}) {
        if (place < length)
            break;
        place -= length;
        ++line;
    }
    QPointF middle(place + 0.5, line + 0.5);
    for (int turn = 0; turn < reading / 32; ++turn)
        middle = QPointF(-middle.y(), middle.x());
    return middle;
}

//! Returns the reading of a cell, counted from 0 at the top left; -1 for a cell without a pixel.
inline int readingAt(int row, int column)
{
    for (int reading = 0; reading < 128; ++reading) {
        if (isUsed(reading) && placeOf(reading) == QPointF(column - 5.5, 5.5 - row))
            return reading;
    }
    return -1;
}

} // namespace PixelWiring
