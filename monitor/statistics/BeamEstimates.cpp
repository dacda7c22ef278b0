// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/BeamEstimates.h"

#include "monitor/statistics/StreamStatistics.h"
#include <corvale_qt/detector/DetectorFrame.h>
#include <corvale_qt/numerics/CellScreening.h>
#include <corvale_qt/numerics/ProfileEstimators.h>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Returns the detector of a stream that does not describe one, counted in cells.
DetectorLayout countedLayout(const StreamHeader &header, bool channelsAreProfile)
{
    const int channels = header.channels.size();
    const PixelShape pixels = PixelShape::of(header);
    DetectorDescription description;
    description.kind = DetectorKind::Strips;
    if (!pixels.isEmpty()) {
        description.kind = DetectorKind::Matrix;
        description.x = DetectorAxis::counted(pixels.columns);
        description.y = DetectorAxis::counted(pixels.rows);
    } else if (header.kind == StreamKind::Strips) {
        description.x = DetectorAxis::counted((channels + 1) / 2);
        description.y = DetectorAxis::counted(channels / 2);
    } else if (header.kind == StreamKind::Channels && channelsAreProfile) {
        description.x = DetectorAxis::counted(channels);
    }
    return DetectorLayout::fromDescription(description);
}

//! The regression of the histogram, with the initial parameters of the statistics page.
BeamEstimate regression(const BeamProfile &profile)
{
    LogParabolaOptions options;
    options.thresholdFraction = 0.1;
    options.halfWidth = 10;
    return logParabolaGaussian(profile, options);
}

void estimatePlane(BeamProfile profile,
                   const QString &plane,
                   const QString &unit,
                   std::vector<PlaneEstimate> *planes)
{
    flagHotCells(profile);
    const std::pair<const char *, BeamEstimate> estimates[] = {
        {"centre_of_gravity", centreOfGravity(profile)},
        {"three_points", threePointGaussian(profile)},
        {"regression", regression(profile)},
        {"least_squares", leastSquaresGaussian(profile)},
        {"half_maximum", halfMaximumWidth(profile)},
        {"second_moment", secondMomentWidth(profile)}};
    for (const auto &[name, estimate] : estimates)
        planes->push_back(
            {plane, QLatin1String(name), estimate, judgeEstimate(profile, estimate), unit});
}

QString unitOf(const DetectorLayout &layout, DetectorLayout::Axis axis)
{
    const QString unit = layout.unit(axis);
    return unit.isEmpty() ? QStringLiteral("cells") : unit;
}

} // namespace

LastEstimates estimatesOfLastReading(const StreamStatistics &statistics, bool channelsAreProfile)
{
    using Axis = DetectorLayout::Axis;
    LastEstimates last;
    const StreamHeader &header = statistics.header();
    const bool described = !header.detector.isEmpty();
    const DetectorLayout layout =
        described ? header.detector : countedLayout(header, channelsAreProfile);
    const std::vector<double> &values = statistics.lastValues();
    if (layout.isEmpty() || values.empty())
        return last;
    const DetectorFrame frame = DetectorFrame::of(layout, values.data(), int(values.size()));
    last.leftOut = {LeftOut::What::Readings, frame.leftOut, frame.leftOutSum, header.readingUnit()};
    last.image = secondMomentImage(frame.image());
    last.unit = unitOf(layout, Axis::X);
    const bool oneProfile = !described && header.kind == StreamKind::Channels;
    for (const auto &[axis, name] :
         {std::pair(Axis::X, oneProfile ? "all" : "x"), std::pair(Axis::Y, "y")}) {
        if (layout.cells(axis) == 0)
            continue;
        estimatePlane(frame.profile(axis), QLatin1String(name), unitOf(layout, axis), &last.planes);
    }
    return last;
}

} // namespace Monitor
