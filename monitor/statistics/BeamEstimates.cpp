// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/BeamEstimates.h"

#include "monitor/readings/StreamDetector.h"
#include "monitor/statistics/StreamStatistics.h"
#include <corvale_qt/detector/DetectorFrame.h>
#include <corvale_qt/numerics/CellScreening.h>
#include <corvale_qt/numerics/ProfileEstimators.h>

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

//! The regression of the histogram, with the initial parameters of the statistics page.
BeamEstimate regression(const BeamProfile &profile)
{
    LogParabolaOptions options;
    options.thresholdFraction = 0.1;
    options.halfWidth = 10;
    return logParabolaGaussian(profile, options);
}

QString unitOf(const DetectorLayout &layout, DetectorLayout::Axis axis)
{
    const QString unit = layout.unit(axis);
    return unit.isEmpty() ? QStringLiteral("cells") : unit;
}

void estimatePlane(const DetectorFrame &frame,
                   DetectorLayout::Axis axis,
                   const QString &plane,
                   LastEstimates *last)
{
    BeamProfile profile = frame.profile(axis);
    flagHotCells(profile);
    const std::pair<const char *, BeamEstimate> estimates[] = {
        {"centre_of_gravity", centreOfGravity(profile)},
        {"three_points", threePointGaussian(profile)},
        {"regression", regression(profile)},
        {"least_squares", leastSquaresGaussian(profile)},
        {"half_maximum", halfMaximumWidth(profile)},
        {"second_moment", secondMomentWidth(profile)}};
    for (const auto &[name, estimate] : estimates)
        last->planes.push_back({plane,
                                QLatin1String(name),
                                estimate,
                                judgeEstimate(profile, estimate, last->limits),
                                unitOf(frame.layout, axis)});
}

} // namespace

LastEstimates estimatesOfLastReading(const StreamStatistics &statistics,
                                     bool channelsAreProfile,
                                     const VerdictLimits &chosenLimits)
{
    using Axis = DetectorLayout::Axis;
    LastEstimates last;
    const StreamHeader &header = statistics.header();
    const DetectorLayout layout = layoutOf(header, channelsAreProfile);
    const std::vector<double> &values = statistics.lastValues();
    if (layout.isEmpty() || values.empty())
        return last;
    DetectorFrame frame = DetectorFrame::of(layout, values.data(), int(values.size()));
    frame.flagHotCellsOfMatrix();
    last.leftOut = LeftOut::of(frame, header.readingUnit());
    last.image = secondMomentImage(frame.image());
    last.limits = verdictLimitsOn(layout, chosenLimits);
    last.unit = unitOf(layout, Axis::X);
    const bool oneProfile = header.detector.isEmpty() && header.kind == StreamKind::Channels;
    for (const auto &[axis, name] :
         {std::pair(Axis::X, oneProfile ? "all" : "x"), std::pair(Axis::Y, "y")}) {
        if (layout.cells(axis) == 0)
            continue;
        estimatePlane(frame, axis, QLatin1String(name), &last);
    }
    return last;
}

} // namespace Monitor
