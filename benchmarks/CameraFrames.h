// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/DetectorFrame>
#include <corvale_qt/DetectorLayout>

//! A camera of 256 x 256 pixels of 0.1 mm.
Corvale_Qt::DetectorLayout camera();
//! Where the beam of a frame lies, and how wide it is: in mm.
struct CameraBeam
{
    double x;
    double y;
    double sigmaX;
    double sigmaY;
};
//! Returns the beam of the frame with a \a number; it moves from frame to frame.
CameraBeam beamOf(int number);
//! Returns the readings of a frame: a Gaussian of height 200 on noise of 1.
QVector<double> cameraReadings(int number);
