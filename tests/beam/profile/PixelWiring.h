// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPointF>

/*! Where the pixels of the matrix detector lie, from how it is wired and not from any table of the library.

    Each quarter of the round area has a connector of 32 pins, of which 30 are used. They count along lines of 6, 6,
    6, 5, 4 and 3 pixels, beginning at the middle of the detector. The first connector's quarter is the upper right
    one, with lines to the right, one above the other; the next quarters are the same, each turned by 90 degrees
    against the clock. */
namespace PixelWiring {

//! Whether a pixel is wired to that place of a frame, 0 to 127.
inline bool isUsed(int reading)
{
    return reading % 32 < 30;
}

//! Its middle, in pixels from the middle of the detector, X to the right and Y upwards.
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

//! The reading of the pixel in a row and a column, counted from 0 at the top left; -1 where there is none.
inline int readingAt(int row, int column)
{
    for (int reading = 0; reading < 128; ++reading) {
        if (isUsed(reading) && placeOf(reading) == QPointF(column - 5.5, 5.5 - row))
            return reading;
    }
    return -1;
}

} // namespace PixelWiring
