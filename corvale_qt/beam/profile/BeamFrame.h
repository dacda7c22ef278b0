// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/profile/SpectrogramCalc.h"
#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/numerics/LogParabolaRegression.h"

#include <QVector>

#include <limits>

namespace Corvale_Qt {

//! How a detector's readings are arranged in a frame.
enum class ProfileLayout {
    None, //!< not known
    StripPair, //!< 32 strips of 2 mm: those of X in readings 0 to 31, those of Y in 64 to 95
    PixelMatrix, //!< 120 pixels of 3.8 mm among 128 readings; see RoundPixelDetector
};

/*! Settings of the user or the host that change a frame's numbers. */
struct FrameOptions
{
    bool invertX = false; //!< whether positive X is to the left
    bool invertY = false; //!< whether positive Y is downwards
    double discriminator = 0; //!< lower pixel readings count as 0; in the unit of the readings
    RegressionOptions<double> regression; //!< of the two fits of a strip pair
};

/*! The one-sigma ellipse in raster units: the outer corner of the first cell is (0, 0), y grows downwards. */
struct SigmaEllipse
{
    double x = 0; //!< centre
    double y = 0; //!< centre
    double semiMajor = 0; //!< half of the longer axis
    double semiMinor = 0; //!< half of the shorter axis
    double rotation = 0; //!< degrees from the x axis towards y
};

/*! The numbers and the raster computed from one frame of readings. */
struct BeamFrame
{
    /*! Ok if the numbers are valid. Otherwise the reason, for a strip pair that of X before that of Y. NotComputed without a
        layout. */
    FitStatus status = FitStatus::NotComputed;
    SpectrogramCalc calc; //!< lengths in mm from the centre of the detector
    QVector<double> raster; //!< row after row from the top; empty without a layout
    SigmaEllipse ellipse; //!< set only if the frame is valid
    //! Direction of the major axis on the display, inverted as the axes are: degrees from X towards Y, in (-90, 90].
    double axisRotation = 0;
    //! Whether calc.max was found. A strip pair has a maximum only if both profiles are fitted.
    bool hasMaximum = false;
    //! Mean in raster units; NaN for an axis without a mean.
    double rasterMeanX = std::numeric_limits<double>::quiet_NaN();
    double rasterMeanY = std::numeric_limits<double>::quiet_NaN(); //!< as rasterMeanX
};

/*! Computes a frame of \a count \a readings, in coulomb or ampere, as RVXSpectrogram does, but needs no display. Readings
    that are missing or not finite count as 0; those beyond 128 are ignored. A strip pair is fitted by fitLogParabola() in
    each direction, a pixel matrix gives its moments by computePixelMoments(). Without a layout, or if a result is too
    large to be plotted, the returned frame is not valid and its raster is empty or 0.

    \code
    const BeamFrame frame = computeFrame(ProfileLayout::PixelMatrix, charges.data(), 128);
    if (frame.status == FitStatus::Ok)
        qInfo() << frame.calc.meanX << "mm";
    \endcode */
CORVALE_QT_EXPORT BeamFrame computeFrame(ProfileLayout layout,
                                         const double *readings,
                                         int count,
                                         const FrameOptions &options = FrameOptions());

} // namespace Corvale_Qt
