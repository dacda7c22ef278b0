// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QImage>
#include <QRect>

//! Calls \a visit with the column and the row of each pixel of a picture.
template<typename Visit>
void forEachPixel(const QImage &picture, const Visit &visit)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            visit(x, y);
    }
}

//! Returns how many pixels of a picture have a colour that \a matches accepts.
template<typename Matches>
int countPixels(const QImage &picture, const Matches &matches)
{
    int count = 0;
    forEachPixel(picture,
                 [&](int x, int y) { count += matches(picture.pixelColor(x, y)) ? 1 : 0; });
    return count;
}

//! Returns the smallest rectangle around all pixels that differ between two pictures of one size.
inline QRect differingArea(const QImage &one, const QImage &other)
{
    QRect area;
    forEachPixel(one, [&](int x, int y) {
        if (one.pixel(x, y) != other.pixel(x, y))
            area |= QRect(x, y, 1, 1);
    });
    return area;
}
