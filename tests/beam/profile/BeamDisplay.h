// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "tests/beam/profile/PixelWiring.h"

#include <QCheckBox>
#include <QVector>

#include <cmath>

/*! Frames as the two detectors would give them. */
namespace Frames {

//! Two Gaussian profiles; places and widths in strips, the first strip's centre at 0.
inline QVector<double>
strips(double x, double sigmaX, double y, double sigmaY, double height = 1e-9, double offset = 0)
{
    QVector<double> frame(128, 0.0);
    for (int i = 0; i < 32; ++i) {
        frame[i] = offset + height * std::exp(-0.5 * std::pow((i - x) / sigmaX, 2));
        frame[64 + i] = offset + height * std::exp(-0.5 * std::pow((i - y) / sigmaY, 2));
    }
    return frame;
}

//! A beam on the pixel matrix: place in mm from the centre, X to the right and Y upwards, widths in mm, the
//! major axis turned by so many degrees from X towards Y.
inline QVector<double>
pixels(double x, double y, double major, double minor, double degrees, double height = 1e-9)
{
    QVector<double> frame(128, 0.0);
    const double turn = degrees * M_PI / 180;
    for (int reading = 0; reading < 128; ++reading) {
        if (!PixelWiring::isUsed(reading))
            continue;
        const double right = 3.8 * PixelWiring::placeOf(reading).x() - x;
        const double up = 3.8 * PixelWiring::placeOf(reading).y() - y;
        const double along = right * std::cos(turn) + up * std::sin(turn);
        const double across = up * std::cos(turn) - right * std::sin(turn);
        frame[reading] = height
            * std::exp(-0.5 * (along * along / major / major + across * across / minor / minor));
    }
    return frame;
}

} // namespace Frames

/*! A display whose clock the test moves: each frame comes one second and one tick after the one before. */
struct BeamDisplay
{
    Corvale_Qt::RVXSpectrogram widget;
    double time = 0;

    void tick() { QMetaObject::invokeMethod(&widget, "update"); }

    Corvale_Qt::SpectrogramCalc feed(const QVector<double> &frame)
    {
        tick();
        return feedBetweenTicks(frame);
    }

    Corvale_Qt::SpectrogramCalc feedBetweenTicks(const QVector<double> &frame)
    {
        time += 1;
        widget.setData(frame, time);
        return widget.getCalc();
    }

    template<typename T>
    T *control(const char *name)
    {
        T *found = widget.findChild<T *>(QString::fromLatin1(name));
        if (!found)
            qFatal("no control %s", name);
        return found;
    }

    void check(const char *name, bool on) { control<QCheckBox>(name)->setChecked(on); }
};
