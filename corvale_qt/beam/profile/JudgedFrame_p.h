// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/BeamFrame_p.h"
#include "corvale_qt/detector/BeamVerdict.h"
#include "corvale_qt/detector/DetectorFrame.h"
#include "corvale_qt/numerics/BeamEstimator.h"

namespace Corvale_Qt {

//! What a frame tells about the beam along one axis.
struct PlaneResult
{
    BeamProfile profile; //!< empty if the detector does not have the axis
    BeamEstimate estimate;
    BeamVerdict verdict;

    bool exists() const { return profile.count() > 0; }
    bool isGood() const { return exists() && verdict.validity != BeamValidity::NotValid; }
};

//! How a frame is estimated and judged.
struct JudgeOptions
{
    BeamEstimator estimator = BeamEstimator::Regression;
    EstimatorOptions estimation; //!< what the estimator uses
    VerdictLimits limits;
    double noiseFactor =
        1; //!< what the charges of the frame are, in the readings whose noise the detector states
};

/*! A frame with its numbers and, if it was judged, its verdict. On a described detector, shape and means of the beam are in
    the units of the axes instead of raster units. */
struct JudgedFrame
{
    BeamFrame beam;
    DetectorFrame cells; //!< with an empty layout unless the frame was judged
    PlaneResult x;
    PlaneResult y;
    BeamVerdict verdict; //!< the worse of the two axes, with the reasons of both
    bool isJudged = false;

    const PlaneResult &plane(DetectorLayout::Axis axis) const
    {
        return axis == DetectorLayout::Axis::X ? x : y;
    }
    //! Makes the frame not valid, and its numbers with it.
    void refuse(FitStatus status, const QString &reason);
};

//! Returns what one unit of an axis is in millimetres; 1 if the unit is empty or no length.
double millimetresPer(const QString &unit);

//! Returns the unit of the lengths of the display along an axis with a \a unit: "mm" for lengths, "cells" for no unit.
QString lengthUnitOf(const QString &unit);

/*! Estimates both axes of a frame on a described detector and computes the numbers of the display from them. The raster has
    the density of charge of each cell of a matrix, NaN where a cell is not wired; for strips the product of the two profiles, which
    adds up to the integral. */
JudgedFrame judgeLayoutFrame(const DetectorFrame &cells, const JudgeOptions &options);

/*! Judges a frame of one of the two presets, whose numbers were computed already. Numbers of an axis that is not valid become
    SpectrogramCalc::invalid. */
JudgedFrame judgePresetFrame(const BeamFrame &beam,
                             ProfileLayout layout,
                             const FrameReadings &readings,
                             const FrameOptions &frameOptions,
                             JudgeOptions options);

} // namespace Corvale_Qt
