// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusFields.h"

#include "monitor/readings/StreamDetector.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace Monitor {

namespace {

using Corvale_Qt::DetectorKind;
using Corvale_Qt::DetectorLayout;
using Axis = DetectorLayout::Axis;

NexusAxis axisOf(const DetectorLayout &detector, Axis axis)
{
    return {axis == Axis::X ? QStringLiteral("x") : QStringLiteral("y"),
            detector.unit(axis),
            detector.positions(axis)};
}

//! Returns the names of some channels; none for frames, whose values have no names.
QStringList channelNames(const StreamHeader &header, int first, int count)
{
    QStringList names;
    for (int i = first; i < first + count && !header.hasFrames(); ++i)
        names.append(header.channels[i].name);
    return names;
}

NexusGroup imageGroup(const StreamHeader &header, const DetectorLayout &detector)
{
    const int rows = detector.cells(Axis::Y), columns = detector.cells(Axis::X);
    const QString name = QStringLiteral("frames");
    return {QStringLiteral("data"),
            {{name,
              name,
              header.readingUnit(),
              0,
              {rows, columns},
              channelNames(header, 0, rows * columns)}},
            {axisOf(detector, Axis::Y), axisOf(detector, Axis::X)}};
}

NexusGroup
planeGroup(const StreamHeader &header, const DetectorLayout &detector, Axis axis, int first)
{
    const NexusAxis places = axisOf(detector, axis);
    const QString name = QStringLiteral("profile_") + places.name;
    const int cells = detector.cells(axis);
    return {
        QStringLiteral("data_") + places.name,
        {{name, name, header.readingUnit(), first, {cells}, channelNames(header, first, cells)}},
        {places}};
}

std::vector<NexusGroup> planeGroups(const StreamHeader &header, const DetectorLayout &detector)
{
    std::vector<NexusGroup> groups;
    const int ofX = detector.cells(Axis::X);
    if (ofX > 0)
        groups.push_back(planeGroup(header, detector, Axis::X, 0));
    if (detector.cells(Axis::Y) > 0)
        groups.push_back(planeGroup(header, detector, Axis::Y, ofX));
    return groups;
}

//! Returns a group for frames whose values are not in the order of the cells.
NexusGroup readingsGroup(const StreamHeader &header)
{
    const QString name = QStringLiteral("readings");
    QVector<double> numbers(header.frameSize);
    std::iota(numbers.begin(), numbers.end(), 1.0);
    return {QStringLiteral("data"),
            {{name, name, header.frameUnit, 0, {header.frameSize}, {}}},
            {{QStringLiteral("reading"), {}, numbers}}};
}

std::vector<NexusGroup> channelGroups(const StreamHeader &header)
{
    std::vector<NexusGroup> groups;
    QStringList units, groupNames;
    std::vector<QStringList> taken;
    for (int i = 0; i < header.channels.size(); ++i) {
        const Channel &channel = header.channels[i];
        int index = units.indexOf(channel.unit);
        if (index < 0) {
            index = units.size();
            units.append(channel.unit);
            const QString name = index == 0 ? QString() : QLatin1Char('_') + channel.unit;
            groups.push_back({nexusName(QLatin1String("data") + name, &groupNames), {}, {}});
            taken.push_back({QStringLiteral("time")});
        }
        const auto at = std::size_t(index);
        groups[at].fields.push_back(
            {nexusName(channel.name, &taken[at]), channel.name, channel.unit, i, {}, {}});
    }
    return groups;
}

//! Returns whether the values of a reading are those of the cells, one after the other, in one unit.
bool isInOrderOfCells(const StreamHeader &header, const DetectorLayout &detector)
{
    const bool sameUnit = header.hasFrames()
        || std::all_of(header.channels.begin(), header.channels.end(), [&](const Channel &channel) {
                              return channel.unit == header.channels.first().unit;
                          });
    return sameUnit && !detector.isEmpty() && detector.description().wiring.isEmpty()
        && detector.cells() == header.valuesPerReading();
}

bool isPlain(QChar letter)
{
    const char16_t code = letter.unicode();
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z')
        || (code >= '0' && code <= '9') || code == '_';
}

} // namespace

int NexusField::width() const
{
    return std::accumulate(sizes.begin(), sizes.end(), 1, std::multiplies<>());
}

std::vector<NexusGroup> nexusGroups(const StreamHeader &header)
{
    const DetectorLayout detector = detectorOf(header);
    if (!isInOrderOfCells(header, detector))
        return header.hasFrames() ? std::vector<NexusGroup>{readingsGroup(header)}
                                  : channelGroups(header);
    if (detector.kind() == DetectorKind::Matrix)
        return {imageGroup(header, detector)};
    return planeGroups(header, detector);
}

QString nexusName(const QString &given, QStringList *taken)
{
    constexpr int longest = 63; // of a name in the programs that are strictest
    QString plain;
    for (const QChar letter : given.left(longest))
        plain += isPlain(letter) ? letter : QLatin1Char('_');
    if (plain.isEmpty() || plain.at(0).isDigit())
        plain.prepend(QLatin1String("channel_"));
    QString name = plain;
    for (int number = 2; taken->contains(name); ++number)
        name = QStringLiteral("%1_%2").arg(plain).arg(number);
    taken->append(name);
    return name;
}

} // namespace Monitor
