// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorFile.h"

#include "corvale_qt/detector/DetectorReader_p.h"
#include "corvale_qt/detector/JsonPlaces_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr int kVersion = 1;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

QStringList kindWords()
{
    return {QStringLiteral("channels"), QStringLiteral("strips"), QStringLiteral("matrix")};
}

QStringList directionWords()
{
    return {QStringLiteral("forward"), QStringLiteral("reverse")};
}

DetectorAxis readAxis(JsonMembers members)
{
    DetectorAxis axis;
    members.take("cells", axis.cells);
    members.take("pitch", axis.pitch);
    members.take("positions", axis.positions, false);
    members.take("widths", axis.widths, true);
    members.take("offset", axis.offset);
    members.take("unit", axis.unit);
    axis.reversed = members.takeWord("direction", directionWords()) == 1;
    if (!members.has("cells"))
        axis.cells = axis.positions.size();
    const bool inALength = !axis.positions.isEmpty() || !std::isnan(axis.pitch);
    if (inALength && axis.unit.isEmpty())
        members.report(QStringLiteral("unit"), tr("is missing"));
    members.refuseOthers();
    return axis;
}

//! Puts numbers into the channels; a single number is for all of them.
template<typename Set>
void spread(JsonMembers &members,
            const char *key,
            QVector<DetectorChannel> &channels,
            const Set &set)
{
    if (!members.has(key))
        return;
    QVector<double> numbers;
    members.take(key, numbers, true);
    if (numbers.size() != 1 && numbers.size() != channels.size()) {
        members.report(QLatin1String(key),
                       tr("has %1 for %2")
                           .arg(tr("%n number(s)", nullptr, numbers.size()),
                                tr("%n reading(s)", nullptr, channels.size())));
        return;
    }
    for (int i = 0; i < channels.size(); ++i)
        set(channels[i], numbers.size() == 1 ? numbers.first() : numbers[i]);
}

void readDead(JsonMembers &members, QVector<DetectorChannel> &channels)
{
    if (!members.has("dead"))
        return;
    QVector<double> numbers;
    members.take("dead", numbers, true);
    for (int i = 0; i < numbers.size(); ++i) {
        const double number = numbers[i];
        if (number >= 1 && number <= channels.size() && number == std::floor(number))
            channels[int(number) - 1].dead = true;
        else
            members.report(QStringLiteral("dead[%1]").arg(i), tr("there is no such channel"));
    }
}

QVector<DetectorChannel> readChannels(JsonMembers members, int readings)
{
    QVector<DetectorChannel> channels(readings);
    QStringList names;
    members.take("names", names);
    if (!names.isEmpty() && names.size() != readings)
        members.report(QStringLiteral("names"),
                       tr("has %1 for %2")
                           .arg(tr("%n name(s)", nullptr, names.size()),
                                tr("%n reading(s)", nullptr, readings)));
    else
        for (int i = 0; i < names.size(); ++i)
            channels[i].name = names[i];
    spread(members, "gain", channels, [](DetectorChannel &channel, double number) {
        channel.gain = number;
    });
    spread(members, "pedestal", channels, [](DetectorChannel &channel, double number) {
        channel.pedestal = number;
    });
    spread(members, "saturation", channels, [](DetectorChannel &channel, double number) {
        channel.saturation = number;
        if (number >= std::numeric_limits<double>::max())
            channel.saturation = kInfinity;
    });
    readDead(members, channels);
    members.refuseOthers();
    return channels;
}

//! Cells are stated from 1, and 0 for a cell that is not wired.
void readWiring(JsonMembers &members, QVector<int> &wiring)
{
    QVector<double> numbers;
    members.take("wiring", numbers, false);
    for (double number : qAsConst(numbers)) {
        if (!(number >= 0 && number <= DetectorLayout::maxReadings)
            || number != std::floor(number)) {
            members.report(QStringLiteral("wiring"),
                           tr("%1 is not the number of a reading").arg(number));
            return;
        }
        wiring.append(int(number) - 1);
    }
}

VerdictLimits readVerdictLimits(JsonMembers members)
{
    VerdictLimits limits;
    for (const VerdictLimitField &field : verdictLimitFields)
        members.take(field.key, limits.*field.limit);
    members.refuseOthers();
    return limits;
}

DetectorDescription readDescription(const QJsonObject &object, DetectorFault &fault)
{
    DetectorDescription description;
    JsonMembers members(object, {}, fault);
    int version = 0;
    members.take("detector", version);
    if (version != kVersion)
        members.report(QStringLiteral("detector"), tr("must be the version, 1"));
    const int kind = members.takeWord("kind", kindWords());
    if (kind < 0)
        members.report(QStringLiteral("kind"), tr("is missing"));
    description.kind = DetectorKind(std::max(kind, 0));
    members.take("title", description.title);
    if (members.has("x"))
        description.x = readAxis(members.object("x"));
    if (members.has("y"))
        description.y = readAxis(members.object("y"));
    members.take("readings", description.readings);
    members.take("density", description.density);
    members.take("noise", description.noise);
    description.verdictLimitsStated = members.has("verdict");
    if (description.verdictLimitsStated)
        description.verdictLimits = readVerdictLimits(members.object("verdict"));
    readWiring(members, description.wiring);
    if (members.has("channels")) {
        // Without its channels the layout says how many readings there are.
        const int readings =
            fault.isEmpty() ? DetectorLayout::fromDescription(description, &fault).readings() : 0;
        description.channels = readChannels(members.object("channels"), readings);
    }
    members.refuseOthers();
    return description;
}

QJsonArray array(const QVector<double> &numbers)
{
    QJsonArray list;
    for (double number : numbers)
        list.append(number);
    return list;
}

QJsonObject axisObject(const DetectorAxis &axis)
{
    QJsonObject object;
    object[QLatin1String("cells")] = axis.cells;
    if (!std::isnan(axis.pitch))
        object[QLatin1String("pitch")] = axis.pitch;
    if (!axis.positions.isEmpty())
        object[QLatin1String("positions")] = array(axis.positions);
    if (!axis.widths.isEmpty())
        object[QLatin1String("widths")] = array(axis.widths);
    if (axis.offset != 0)
        object[QLatin1String("offset")] = axis.offset;
    if (!axis.unit.isEmpty())
        object[QLatin1String("unit")] = axis.unit;
    if (axis.reversed)
        object[QLatin1String("direction")] = directionWords().last();
    return object;
}

QJsonObject channelsObject(const QVector<DetectorChannel> &channels)
{
    QJsonArray names, dead;
    QVector<double> gains, pedestals, saturations;
    const DetectorChannel ordinary;
    DetectorChannel differs; // keeps one value of each field that is not the ordinary one
    for (int i = 0; i < channels.size(); ++i) {
        const DetectorChannel &channel = channels[i];
        names.append(channel.name);
        gains.append(channel.gain);
        pedestals.append(channel.pedestal);
        saturations.append(channel.saturation);
        if (channel.dead)
            dead.append(i + 1);
        differs.name += channel.name.left(1);
        differs.gain = channel.gain != ordinary.gain ? channel.gain : differs.gain;
        differs.pedestal = channel.pedestal != 0 ? channel.pedestal : differs.pedestal;
        differs.saturation = std::min(differs.saturation, channel.saturation);
    }
    // JSON has no infinity: channels that do not saturate get the largest number.
    for (double &saturation : saturations)
        saturation = std::min(saturation, std::numeric_limits<double>::max());
    QJsonObject object;
    if (!differs.name.isEmpty())
        object[QLatin1String("names")] = names;
    if (differs.gain != ordinary.gain)
        object[QLatin1String("gain")] = array(gains);
    if (differs.pedestal != 0)
        object[QLatin1String("pedestal")] = array(pedestals);
    if (differs.saturation != kInfinity)
        object[QLatin1String("saturation")] = array(saturations);
    if (!dead.isEmpty())
        object[QLatin1String("dead")] = dead;
    return object;
}

//! Returns the limits that are not the usual ones; all of them if there are none.
QJsonObject verdictObject(const VerdictLimits &limits)
{
    QJsonObject object;
    const VerdictLimits usual;
    for (const VerdictLimitField &field : verdictLimitFields)
        if (limits == usual || limits.*field.limit != usual.*field.limit)
            object[QLatin1String(field.key)] = limits.*field.limit;
    return object;
}

/*! Returns where the text has an item of the wiring table, whose items the layout counts through: the table may also have a
    list for each row. */
QString placeInText(const QString &place, const QJsonObject &object)
{
    const QString list = QStringLiteral("wiring[");
    const QJsonArray rows = object.value(QLatin1String("wiring")).toArray();
    const int columns = rows.first().toArray().size();
    if (!place.startsWith(list) || columns == 0)
        return place;
    const int cell = place.mid(list.size(), place.size() - list.size() - 1).toInt();
    return QStringLiteral("wiring[%1][%2]").arg(cell / columns).arg(cell % columns);
}

} // namespace

DetectorLayout detectorFromJson(const QByteArray &json, DetectorFault *fault)
{
    DetectorFault found;
    DetectorLayout layout;
    QJsonParseError error{};
    if (json.size() > kLongestDetectorFile) {
        found.text = tr("the text is longer than %1 MiB").arg(kLongestDetectorFile >> 20);
    } else if (const RepeatedKey repeated = repeatedKey(json); repeated.line > 0) {
        found.text = tr("the key \"%1\" is given twice, or with a backslash").arg(repeated.key);
        found.line = repeated.line;
    } else if (const auto document = QJsonDocument::fromJson(json, &error); !document.isObject()) {
        const bool broken = error.error != QJsonParseError::NoError;
        found.text = broken ? error.errorString() : tr("this is not an object in braces");
        found.line = lineOfOffset(json, broken ? error.offset : 0);
    } else {
        const DetectorDescription description = readDescription(document.object(), found);
        if (found.isEmpty())
            layout = DetectorLayout::fromDescription(description, &found);
        if (!found.isEmpty()) {
            found.place = placeInText(found.place, document.object());
            found.line = lineOfPlace(json, found.place);
        }
    }
    if (fault)
        *fault = found;
    return layout;
}

QByteArray detectorToJson(const DetectorLayout &layout, bool compact)
{
    if (layout.isEmpty())
        return {};
    const DetectorDescription &description = layout.description();
    QJsonObject object;
    object[QLatin1String("detector")] = kVersion;
    object[QLatin1String("kind")] = kindWords()[int(description.kind)];
    if (!description.title.isEmpty())
        object[QLatin1String("title")] = description.title;
    if (description.x.cells > 0)
        object[QLatin1String("x")] = axisObject(description.x);
    if (description.y.cells > 0)
        object[QLatin1String("y")] = axisObject(description.y);
    object[QLatin1String("readings")] = description.readings;
    if (description.density)
        object[QLatin1String("density")] = true;
    if (!std::isnan(description.noise))
        object[QLatin1String("noise")] = description.noise;
    QJsonArray wiring;
    for (int reading : description.wiring)
        wiring.append(reading + 1);
    if (!wiring.isEmpty())
        object[QLatin1String("wiring")] = wiring;
    const QJsonObject channels = channelsObject(description.channels);
    if (!channels.isEmpty())
        object[QLatin1String("channels")] = channels;
    if (description.hasOwnVerdictLimits())
        object[QLatin1String("verdict")] = verdictObject(description.verdictLimits);
    return QJsonDocument(object).toJson(compact ? QJsonDocument::Compact : QJsonDocument::Indented);
}

DetectorLayout detectorFromFile(const QString &path, DetectorFault *fault)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (fault)
            *fault = {{}, file.errorString()};
        return {};
    }
    return detectorFromJson(file.read(kLongestDetectorFile + 1), fault);
}

} // namespace Corvale_Qt
