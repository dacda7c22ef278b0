// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/PluginStream.h"

#include "monitor/core/Text.h"
#include "monitor/input/CleanText.h"

#include <algorithm>

namespace Monitor {

namespace {

using Corvale_Qt::DetectorLayout;
using CorvaleMonitor::SourceStream;

constexpr int longestUnit = 16;

Channel channelOf(const CorvaleMonitor::SourceChannel &given)
{
    return {cleanText(given.name, maxNameLength), cleanText(given.unit, longestUnit)};
}

//! Returns the limits of a channel; empty ones if those that are given make no sense.
Corvale_Qt::ChannelLimits limitsOf(const CorvaleMonitor::SourceChannel &given)
{
    Corvale_Qt::ChannelLimits limits;
    limits.lowAlarm = given.lowAlarm;
    limits.lowWarning = given.lowWarning;
    limits.highWarning = given.highWarning;
    limits.highAlarm = given.highAlarm;
    return limits.isValid() ? limits : Corvale_Qt::ChannelLimits();
}

void setChannels(StreamHeader *header, const SourceStream &stream)
{
    const int shown = std::min(int(stream.channels.size()), StreamHeader::maxChannels);
    header->leftOutChannels = stream.channels.size() - shown;
    bool any = false;
    for (int i = 0; i < shown; ++i) {
        header->channels.append(channelOf(stream.channels.at(i)));
        header->limits.append(limitsOf(stream.channels.at(i)));
        any = any || !header->limits.last().isEmpty();
    }
    if (!any)
        header->limits.clear();
}

bool setFrames(StreamHeader *header, const SourceStream &stream)
{
    using Corvale_Qt::DetectorAxis;
    const bool isMatrix = stream.layout == SourceStream::Layout::Matrix;
    const int most = isMatrix ? DetectorLayout::maxSide : DetectorLayout::maxStrips;
    const auto cells = [&](int count) {
        return isMatrix ? count : std::min(count, most);
    };
    Corvale_Qt::DetectorDescription frames;
    frames.kind = isMatrix ? Corvale_Qt::DetectorKind::Matrix : Corvale_Qt::DetectorKind::Strips;
    frames.x = DetectorAxis::counted(cells(stream.columns));
    frames.y = DetectorAxis::counted(cells(stream.rows));
    const bool isCut = frames.x.cells < stream.columns || frames.y.cells < stream.rows;
    if (isCut) {
        frames.readings = stream.valuesPerReading();
        for (int i = 0; i < frames.x.cells; ++i)
            frames.wiring.append(i);
        for (int i = 0; i < frames.y.cells; ++i)
            frames.wiring.append(stream.columns + i);
    }
    const DetectorLayout layout = DetectorLayout::fromDescription(frames);
    if (layout.isEmpty())
        return false;
    header->setFrames(layout, cleanText(stream.unit, longestUnit));
    return true;
}

} // namespace

std::optional<StreamHeader> headerOfPlugin(const SourceStream &stream, QString *error)
{
    StreamHeader header;
    header.startTime = stream.start;
    if (stream.layout == SourceStream::Layout::Channels) {
        setChannels(&header, stream);
        if (!header.channels.isEmpty())
            return header;
        *error = Text::tr("it has no channels");
        return std::nullopt;
    }
    constexpr int most = DetectorLayout::maxReadings;
    const bool isPossible = stream.columns >= 0 && stream.rows >= 0 && stream.columns <= most
        && stream.rows <= most && setFrames(&header, stream);
    if (isPossible)
        return header;
    *error =
        Text::tr("frames of %1 x %2 values cannot be shown: a matrix has at most 256 columns and "
                 "256 rows, and planes of strips have at most 65536 values together")
            .arg(stream.columns)
            .arg(stream.rows);
    return std::nullopt;
}

} // namespace Monitor
