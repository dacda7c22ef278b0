// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tests/beam/profile/PixelWiring.h"

#include <QVector>

#include <cmath>

/*! Frames of Gaussian beams, as the two detectors would give them. */
namespace Frames {

//! Two Gaussian profiles. Positions and widths are in strips; the centre of the first strip is at 0.
inline QVector<double> strips(double x, double sigmaX, double y, double sigmaY,
                              double height = 1e-9, double offset = 0)
{
    QVector<double> frame(128, 0.0);
    for (int i = 0; i < 32; ++i) {
        frame[i] = offset + height * std::exp(-0.5 * std::pow((i - x) / sigmaX, 2));
        frame[64 + i] = offset + height * std::exp(-0.5 * std::pow((i - y) / sigmaY, 2));
    }
    return frame;
}

//! A beam on the pixel matrix. Its position, in mm from the centre, has X to the right and Y upwards; its widths are in
//! mm; its major axis is turned by \a degrees from X towards Y.
inline QVector<double> pixels(double x, double y, double major, double minor, double degrees,
                              double height = 1e-9)
{
    QVector<double> frame(128, 0.0);
    const double turn = degrees * M_PI / 180;
    for (int reading = 0; reading < 128; ++reading) {
        if (!PixelWiring::isUsed(reading))
            continue;
        const QPointF place = 3.8 * PixelWiring::placeOf(reading) - QPointF(x, y);
        const double along = place.x() * std::cos(turn) + place.y() * std::sin(turn);
        const double across = place.y() * std::cos(turn) - place.x() * std::sin(turn);
        frame[reading] = height
            * std::exp(-0.5 * (along * along / major / major + across * across / minor / minor));
    }
    return frame;
}

//! Returns a beam on the strips at \a x mm from the middle.
inline QVector<double> strips(double x, double height = 1e-9)
{
    return strips(15.5 + x / 2, 3, 15, 3, height);
}

//! Returns a round beam in the middle of the pixels; the brightest of them reads 0.798 times the height.
inline QVector<double> pixels(double height = 1e-9)
{
    return pixels(0, 0, 4, 4, 0, height);
}

} // namespace Frames
