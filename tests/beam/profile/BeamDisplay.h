// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "tests/beam/profile/Frames.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>

//! Returns whether two numbers agree within a tolerance, and prints them if they do not.
inline bool near(double actual, double expected, double tolerance)
{
    if (std::abs(actual - expected) <= tolerance)
        return true;
    qWarning("%.9g, not %.9g", actual, expected);
    return false;
}

//! Returns the angle between two axes, 0 to 90 degrees.
inline double apart(double degrees, double otherDegrees)
{
    return std::abs(std::remainder(degrees - otherDegrees, 180));
}

enum class Detector {
    None,
    Strips,
    Pixels
};

/*! A display whose clock the test moves: each frame comes one second and one tick after the one before. */
struct BeamDisplay
{
    explicit BeamDisplay(Detector detector = Detector::None)
    {
        if (detector != Detector::None)
            choose(detector);
    }

    Corvale_Qt::RVXSpectrogram widget;
    double time = 0;

    void choose(Detector detector)
    {
        widget.setL408(detector == Detector::Strips);
        widget.setPixelated(detector == Detector::Pixels);
    }

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

    QDoubleSpinBox *box(const char *name) { return control<QDoubleSpinBox>(name); }
    QString text(const char *name) { return box(name)->text(); }
    QString validity() { return control<QLabel>("label_valid")->text(); }
    void check(const char *name, bool on) { control<QCheckBox>(name)->setChecked(on); }
};
