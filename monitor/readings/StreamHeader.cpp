// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/StreamHeader.h"

#include "monitor/core/Text.h"

#include <algorithm>
#include <utility>

namespace Monitor {

namespace {

const char *const kindNames[] = {"channels", "strips", "pixels", "spots"};

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString stripName(int index, int ofX)
{
    return index < ofX ? QLatin1Char('x') + twoDigits(index + 1)
                       : QLatin1Char('y') + twoDigits(index - ofX + 1);
}

QString pixelName(int index, int columns)
{
    return QLatin1Char('r') + twoDigits(index / columns + 1) + QLatin1Char('c')
        + twoDigits(index % columns + 1);
}

Channel spotChannel(int index)
{
    const Channel channels[] = {{"x", "mm"},
                                {"y", "mm"},
                                {"mu", ""},
                                {"sigma_x", "mm"},
                                {"sigma_y", "mm"}};
    constexpr int known = sizeof(channels) / sizeof(channels[0]);
    return index < known ? channels[index] : Channel{QStringLiteral("extra%1").arg(index + 1), {}};
}

//! Returns the channels of what is computed from each frame.
QVector<Channel> frameNumbers(const Corvale_Qt::DetectorLayout &layout, const QString &unit)
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    QVector<Channel> channels = {{"sum", unit}, {"max", unit}};
    for (const auto &[axis, name] : {std::pair(Axis::X, "x"), std::pair(Axis::Y, "y")}) {
        if (layout.cells(axis) == 0)
            continue;
        const QString stated = layout.unit(axis);
        const QString length = stated.isEmpty() ? QStringLiteral("cells") : stated;
        channels.append({QLatin1String(name), length});
        channels.append({QLatin1String("sigma_") + QLatin1String(name), length});
    }
    return channels;
}

} // namespace

QString kindName(StreamKind kind)
{
    return QLatin1String(kindNames[int(kind)]);
}

QString kindText(StreamKind kind)
{
    switch (kind) {
    case StreamKind::Strips:
        return Text::tr("strips");
    case StreamKind::Pixels:
        return Text::tr("pixels");
    case StreamKind::Spots:
        return Text::tr("spots");
    case StreamKind::Channels:
        break;
    }
    return Text::tr("channels");
}

StreamKind kindFromName(const QString &name, bool *ok)
{
    const auto found = std::find(std::begin(kindNames), std::end(kindNames), name);
    *ok = found != std::end(kindNames);
    return *ok ? StreamKind(found - std::begin(kindNames)) : StreamKind::Channels;
}

void StreamHeader::setDetector(const Corvale_Qt::DetectorLayout &layout)
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    if (!hasFrames())
        detector = {};
    detectorFault = {};
    if (layout.isEmpty())
        return;
    if (layout.readings() != valuesPerReading()) {
        detectorFault = LoggedText::of([&] {
            return Text::counted("it has %n reading(s), the stream %1", nullptr, layout.readings())
                .arg(valuesPerReading());
        });
        return;
    }
    const bool isRowAfterRow =
        layout.kind() == Corvale_Qt::DetectorKind::Matrix && layout.description().wiring.isEmpty();
    if (frameRows > 0 && isRowAfterRow && layout.cells(Axis::Y) != frameRows) {
        detectorFault = LoggedText::of([&] {
            return Text::tr("it has %1 x %2 cells, the frames %3 x %4")
                .arg(layout.cells(Axis::Y))
                .arg(layout.cells(Axis::X))
                .arg(frameRows)
                .arg(frameSize / frameRows);
        });
        return;
    }
    if (hasFrames() && layout.kind() == Corvale_Qt::DetectorKind::Channels) {
        detectorFault = LoggedText::of([] {
            return Text::tr("its channels have no places");
        });
        return;
    }
    if (hasFrames()) {
        setFrames(layout, frameUnit);
        return;
    }
    detector = layout;
    if (kind == StreamKind::Strips && layout.cells(Axis::X) != layout.cells(Axis::Y))
        kind = StreamKind::Channels;
}

void StreamHeader::setFrames(const Corvale_Qt::DetectorLayout &layout, const QString &unit)
{
    kind =
        layout.kind() == Corvale_Qt::DetectorKind::Matrix ? StreamKind::Pixels : StreamKind::Strips;
    if (frameSize != layout.readings()) {
        frameSize = layout.readings();
        const bool isMatrix = kind == StreamKind::Pixels && layout.cells() == frameSize;
        frameRows = isMatrix ? layout.cells(Corvale_Qt::DetectorLayout::Axis::Y) : 0;
    }
    frameUnit = unit;
    detector = layout;
    channels = frameNumbers(layout, unit);
}

StreamHeader StreamHeader::ofNumbers() const
{
    StreamHeader header;
    header.channels = channels;
    header.hasTimes = hasTimes;
    header.startTime = startTime;
    return header;
}

bool StreamHeader::setLimits(const QString &name, const Corvale_Qt::ChannelLimits &limitsOfChannel)
{
    int index = indexOf(name);
    for (int i = 0; i < channels.size() && index < 0; ++i) {
        const bool hasUnit = !channels[i].unit.isEmpty();
        if (hasUnit && channels[i].name + QLatin1Char('_') + channels[i].unit == name)
            index = i;
    }
    if (index < 0)
        return false;
    limits.resize(channels.size());
    limits[index] = limitsOfChannel;
    return true;
}

int StreamHeader::indexOf(const QString &name) const
{
    for (int i = 0; i < channels.size(); ++i)
        if (channels[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

bool StreamHeader::countsFrom1970(double time)
{
    constexpr double first = 1e9; // in 2001
    constexpr double last = 4.3e9; // in 2106
    return time >= first && time <= last;
}

std::optional<double> StreamHeader::statedOrigin(double firstTime) const
{
    constexpr double secondsEach = 1e-3; // millisecond
    if (startTime.isValid())
        return secondsEach * double(startTime.toMSecsSinceEpoch());
    return countsFrom1970(firstTime) ? std::optional(0.0) : std::nullopt;
}

QString StreamHeader::commonUnit() const
{
    if (channels.isEmpty())
        return {};
    const QString first = channels.first().unit;
    const auto end = channels.begin() + measured();
    const bool same = std::all_of(channels.begin(), end, [&](const Channel &channel) {
        return channel.unit == first;
    });
    return same ? first : QString();
}

QVector<Channel> StreamHeader::defaultChannels(StreamKind kind, int count)
{
    QVector<Channel> channels;
    channels.reserve(count);
    int side = 1;
    while (side * side < count)
        ++side;
    for (int i = 0; i < count; ++i) {
        if (kind == StreamKind::Strips)
            channels.append({stripName(i, (count + 1) / 2), {}});
        else if (kind == StreamKind::Pixels)
            channels.append({pixelName(i, side), {}});
        else if (kind == StreamKind::Spots)
            channels.append(spotChannel(i));
        else
            channels.append({QStringLiteral("ch%1").arg(i + 1), {}});
    }
    return channels;
}

QVector<Channel> StreamHeader::stripChannels(int ofX, int ofY)
{
    QVector<Channel> channels;
    channels.reserve(ofX + ofY);
    for (int i = 0; i < ofX + ofY; ++i)
        channels.append({stripName(i, ofX), {}});
    return channels;
}

QVector<Channel> StreamHeader::pixelChannels(int rows, int columns)
{
    QVector<Channel> channels;
    channels.reserve(rows * columns);
    for (int i = 0; i < rows * columns; ++i)
        channels.append({pixelName(i, columns), {}});
    return channels;
}

} // namespace Monitor
