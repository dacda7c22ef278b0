// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/SpectrogramCalc.h"
#include "corvale_qt/numerics/LogParabolaRegression_p.h"

#include <QVector>

#include <array>
#include <limits>

namespace Corvale_Qt {

enum class DetectorLayout {
    None,
    StripPair,
    PixelMatrix,
};

/*! The square raster that a detector is shown on. */
struct DetectorGrid
{
    int size = 0; //!< cells on each side
    double pitch = 0; //!< mm
    int bottomStep = 0; //!< cells between the labels of the bottom axis

    static DetectorGrid of(DetectorLayout layout);
};

constexpr int kFrameReadings = 128;
using FrameReadings = std::array<double, kFrameReadings>;

//! The first 128 values; 0 for those that are missing or not finite.
FrameReadings frameReadings(const QVector<double> &data);
//! The same times \a factor; 0 where the product is not finite.
FrameReadings scaled(FrameReadings readings, double factor);

//! What the user or the host chose that changes a frame's numbers.
struct FrameOptions
{
    bool invertX = false;
    bool invertY = false;
    double discriminator = 0;
    RegressionOptions<double> regression;
};

/*! One-sigma ellipse in raster units: the corner of the first cell is (0, 0), y grows downwards. */
struct SigmaEllipse
{
    double x = 0;
    double y = 0;
    double semiMajor = 0;
    double semiMinor = 0;
    double rotation = 0; //!< degrees from the x axis towards y
};

/*! A frame turned into numbers and a raster. */
struct BeamFrame
{
    SpectrogramCalc calc;
    QVector<double> raster; //!< row after row from the top; empty without a layout
    SigmaEllipse ellipse; //!< where the frame is valid
    //! Direction of the major axis as the display is inverted: degrees from X towards Y, in (-90, 90].
    double axisRotation = 0;
    //! Whether calc.max was found. Two strip profiles have a maximum only where both are fitted.
    bool hasMaximum = false;
    // In raster units; NaN where that axis has no mean.
    double rasterMeanX = std::numeric_limits<double>::quiet_NaN();
    double rasterMeanY = std::numeric_limits<double>::quiet_NaN();
};

//! True where a strip frame's profiles sum to nothing, so that there is nothing to show.
bool stripFrameIsEmpty(const FrameReadings &readings);

BeamFrame
computeFrame(DetectorLayout layout, const FrameReadings &readings, const FrameOptions &options);

} // namespace Corvale_Qt
