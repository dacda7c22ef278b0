// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/BeamEstimates.h"

#include "monitor/readings/StreamDetector.h"
#include "monitor/statistics/StreamStatistics.h"
#include <corvale_qt/detector/DetectorFrame.h>
#include <corvale_qt/numerics/BeamEstimator.h>
#include <corvale_qt/numerics/CellScreening.h>

#include <cmath>
#include <optional>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Returns the detector of the stream; without a layout, all channels are one profile if that is wanted.
DetectorLayout layoutOf(const StreamHeader &header, bool channelsAreProfile)
{
    const bool isProfile =
        channelsAreProfile && header.detector.isEmpty() && header.kind == StreamKind::Channels;
    return isProfile ? DetectorLayout::fromDescription(countedStrips(header.channels.size(), 0))
                     : detectorOf(header);
}

QString unitOf(const DetectorLayout &layout, DetectorLayout::Axis axis)
{
    const QString unit = layout.unit(axis);
    return unit.isEmpty() ? QStringLiteral("cells") : unit;
}

//! The names of the estimators, as reports have them, in the order of the reports.
constexpr std::pair<const char *, BeamEstimator> estimators[] = {
    {"centre_of_gravity", BeamEstimator::CentreOfGravity},
    {"three_points", BeamEstimator::ThreePoints},
    {"regression", BeamEstimator::Regression},
    {"least_squares", BeamEstimator::LeastSquares},
    {"least_squares_linear", BeamEstimator::LeastSquaresLinear},
    {"half_maximum", BeamEstimator::HalfMaximum},
    {"second_moment", BeamEstimator::SecondMoment}};

//! The latest reading on its detector.
struct LastFrame
{
    DetectorFrame frame;
    bool isOneProfile = false; //!< whether all channels are one profile, since nothing places them
    VerdictLimits limits; //!< by which estimates are judged
};

//! Returns the latest reading on its detector; nothing if there is none, or if nothing places its values.
std::optional<LastFrame> lastFrame(const StreamStatistics &statistics,
                                   bool channelsAreProfile,
                                   const VerdictLimits &chosenLimits)
{
    const StreamHeader &header = statistics.header();
    const DetectorLayout layout = layoutOf(header, channelsAreProfile);
    const std::vector<double> &values = statistics.lastValues();
    if (layout.isEmpty() || values.empty())
        return std::nullopt;
    LastFrame last;
    last.frame = DetectorFrame::of(layout, values.data(), int(values.size()));
    last.frame.flagHotCellsOfMatrix();
    last.isOneProfile = header.detector.isEmpty() && header.kind == StreamKind::Channels;
    last.limits = verdictLimitsOn(layout, chosenLimits);
    return last;
}

//! Returns the estimates of all planes, by the one estimator of that name, or by all of them.
std::vector<PlaneEstimate> estimatePlanes(const LastFrame &last,
                                          const EstimatorOptions &options,
                                          std::optional<BeamEstimator> wanted = {})
{
    using Axis = DetectorLayout::Axis;
    std::vector<PlaneEstimate> planes;
    const DetectorLayout &layout = last.frame.layout;
    for (const auto &[axis, plane] :
         {std::pair(Axis::X, last.isOneProfile ? "all" : "x"), std::pair(Axis::Y, "y")}) {
        if (layout.cells(axis) == 0)
            continue;
        BeamProfile profile = last.frame.profile(axis);
        flagHotCells(profile);
        for (const auto &[name, estimator] : estimators) {
            if (wanted && estimator != *wanted)
                continue;
            const BeamEstimate estimate = estimateBeam(profile, estimator, options);
            planes.push_back({QLatin1String(plane),
                              QLatin1String(name),
                              estimate,
                              judgeEstimate(profile, estimate, last.limits),
                              unitOf(layout, axis)});
        }
    }
    return planes;
}

} // namespace

LastEstimates estimatesOfLastReading(const StreamStatistics &statistics,
                                     bool channelsAreProfile,
                                     const VerdictLimits &chosenLimits,
                                     const FitParameters &parameters)
{
    LastEstimates estimates;
    const auto last = lastFrame(statistics, channelsAreProfile, chosenLimits);
    if (!last)
        return estimates;
    estimates.leftOut = LeftOut::of(last->frame, statistics.header().readingUnit());
    estimates.image = secondMomentImage(last->frame.image());
    estimates.limits = last->limits;
    estimates.unit = unitOf(last->frame.layout, DetectorLayout::Axis::X);
    estimates.planes = estimatePlanes(*last, parameters.options());
    return estimates;
}

std::vector<PlaneEstimate> fittedPlanes(const StreamStatistics &statistics,
                                        bool channelsAreProfile,
                                        const VerdictLimits &chosenLimits)
{
    const auto last = lastFrame(statistics, channelsAreProfile, chosenLimits);
    return last ? estimatePlanes(*last, {}, BeamEstimator::LeastSquares)
                : std::vector<PlaneEstimate>();
}

double integralOf(const BeamEstimate &estimate)
{
    if (!estimate.isOk())
        return std::numeric_limits<double>::quiet_NaN();
    return estimate.height.value * estimate.sigma.value * std::sqrt(2.0 * M_PI);
}

} // namespace Monitor
