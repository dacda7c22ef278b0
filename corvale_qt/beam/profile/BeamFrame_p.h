// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/SpectrogramCalc.h"
#include "corvale_qt/numerics/LogParabolaRegression_p.h"

#include <QVector>

#include <array>
#include <limits>

namespace Corvale_Qt {

//! How a detector's readings are arranged in a frame.
enum class ProfileLayout {
    None,
    StripPair,
    PixelMatrix,
};

/*! The square raster that shows a detector. */
struct DetectorGrid
{
    int size = 0; //!< cells on each side; 0 without a layout
    double pitch = 0; //!< width of a cell, mm
    int bottomStep = 0; //!< cells between the labels of the bottom axis

    //! Returns the raster for a layout.
    static DetectorGrid of(ProfileLayout layout);
};

constexpr int kFrameReadings = 128;
using FrameReadings = std::array<double, kFrameReadings>;

//! Returns the first 128 values, with 0 for those that are missing or not finite.
FrameReadings frameReadings(const QVector<double> &data);
//! Returns the readings times \a factor, with 0 for products that are not finite.
FrameReadings scaled(FrameReadings readings, double factor);

/*! Settings of the user or the host that change a frame's numbers. */
struct FrameOptions
{
    bool invertX = false;
    bool invertY = false;
    double discriminator = 0; //!< lower pixel readings count as 0; in the unit of the readings
    RegressionOptions<double> regression;
};

/*! The one-sigma ellipse in raster units: the outer corner of the first cell is (0, 0), y grows downwards. */
struct SigmaEllipse
{
    double x = 0; //!< centre
    double y = 0;
    double semiMajor = 0;
    double semiMinor = 0;
    double rotation = 0; //!< degrees from the x axis towards y
};

/*! The numbers and the raster computed from one frame of readings. */
struct BeamFrame
{
    SpectrogramCalc calc;
    QVector<double> raster; //!< row after row from the top; empty without a layout
    SigmaEllipse ellipse; //!< set only if the frame is valid
    //! Direction of the major axis on the display, inverted as the axes are: degrees from X towards Y, in (-90, 90].
    double axisRotation = 0;
    //! Whether calc.max was found. A strip pair has a maximum only if both profiles are fitted.
    bool hasMaximum = false;
    // Means in raster units; NaN for an axis without a mean.
    double rasterMeanX = std::numeric_limits<double>::quiet_NaN();
    double rasterMeanY = std::numeric_limits<double>::quiet_NaN();
};

//! Returns whether the two profiles of a strip frame sum to 0, so that there is nothing to show.
bool stripFrameIsEmpty(const FrameReadings &readings);

/*! Computes a frame. The readings are in coulomb or ampere. Without a layout, or if a result is too large to be
    plotted, the returned frame is not valid and its raster is empty or 0. */
BeamFrame
computeFrame(ProfileLayout layout, const FrameReadings &readings, const FrameOptions &options);

} // namespace Corvale_Qt
