// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/StreamDetector.h"

#include "monitor/readings/PixelShape.h"

namespace Monitor {

using namespace Corvale_Qt;

DetectorDescription countedMatrix(int rows, int columns)
{
    DetectorDescription matrix;
    matrix.kind = DetectorKind::Matrix;
    matrix.x = DetectorAxis::counted(columns);
    matrix.y = DetectorAxis::counted(rows);
    matrix.readings = rows * columns;
    return matrix;
}

DetectorDescription countedStrips(int ofX, int ofY)
{
    DetectorDescription strips;
    strips.kind = DetectorKind::Strips;
    strips.x = DetectorAxis::counted(ofX);
    strips.y = DetectorAxis::counted(ofY);
    strips.readings = ofX + ofY;
    return strips;
}

DetectorLayout detectorOf(const StreamHeader &header)
{
    if (!header.detector.isEmpty()) {
        const bool hasPlaces = header.detector.kind() != DetectorKind::Channels;
        return hasPlaces ? header.detector : DetectorLayout();
    }
    const int values = header.valuesPerReading();
    if (header.kind == StreamKind::Strips && values > 0)
        return DetectorLayout::fromDescription(countedStrips((values + 1) / 2, values / 2));
    const PixelShape pixels = PixelShape::of(header);
    return pixels.isEmpty()
        ? DetectorLayout()
        : DetectorLayout::fromDescription(countedMatrix(pixels.rows, pixels.columns));
}

VerdictLimits verdictLimitsOn(const DetectorLayout &detector, const VerdictLimits &chosen)
{
    const DetectorDescription &description = detector.description();
    return description.hasOwnVerdictLimits() ? description.verdictLimits : chosen;
}

DetectorLayout withVerdictLimits(const DetectorLayout &detector, const VerdictLimits &chosen)
{
    if (detector.isEmpty())
        return detector;
    DetectorDescription description = detector.description();
    description.verdictLimits = verdictLimitsOn(detector, chosen);
    return DetectorLayout::fromDescription(description);
}

StreamKind layoutKind(const StreamHeader &header)
{
    switch (header.detector.kind()) {
    case Corvale_Qt::DetectorKind::Strips:
        return StreamKind::Strips;
    case Corvale_Qt::DetectorKind::Matrix:
        return StreamKind::Pixels;
    case Corvale_Qt::DetectorKind::Channels:
        break;
    }
    return header.kind;
}

QString layoutName(const StreamHeader &header)
{
    return kindName(layoutKind(header));
}

} // namespace Monitor
