// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorLayout.h"

#include "corvale_qt/detector/AxisPlaces_p.h"
#include "corvale_qt/numerics/RoundPixelDetector.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <QDebug>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Corvale_Qt {

class DetectorLayoutData : public QSharedData
{
public:
    bool empty = true;
    DetectorDescription description;
    AxisPlaces x;
    AxisPlaces y;
    int cells = 0;
    int unwired = 0;

    const AxisPlaces &places(DetectorLayout::Axis axis) const
    {
        return axis == DetectorLayout::Axis::X ? x : y;
    }
    const DetectorAxis &stated(DetectorLayout::Axis axis) const
    {
        return axis == DetectorLayout::Axis::X ? description.x : description.y;
    }
};

namespace {

constexpr int kLongestTitle = 200;
constexpr int kLongestName = 64;

QString place(const char *list, int index)
{
    return QStringLiteral("%1[%2]").arg(QLatin1String(list)).arg(index);
}

//! The number of cells and of readings of a description whose axes have been checked.
struct Size
{
    int cells = 0;
    int readings = 0;

    static Size of(const DetectorDescription &description)
    {
        Size size;
        if (description.kind == DetectorKind::Strips)
            size.cells = description.x.cells + description.y.cells;
        else if (description.kind == DetectorKind::Matrix)
            size.cells = description.x.cells * description.y.cells;
        else
            size.cells = std::max(description.readings, description.channels.size());
        size.readings = description.readings > 0 ? description.readings : size.cells;
        return size;
    }
};

DetectorFault axesFault(const DetectorDescription &description)
{
    const bool matrix = description.kind == DetectorKind::Matrix;
    const int most = matrix ? DetectorLayout::maxSide : DetectorLayout::maxStrips;
    for (const auto &[axis, name] : {std::make_pair(&description.x, QStringLiteral("x")),
                                     std::make_pair(&description.y, QStringLiteral("y"))}) {
        if (DetectorFault fault = axisFault(*axis, name, most); !fault.isEmpty())
            return fault;
        if (matrix && axis->cells == 0)
            return {name + QLatin1String(".cells"), tr("a matrix has rows and columns")};
        if (description.kind == DetectorKind::Channels && axis->cells > 0)
            return {name, tr("a list of channels has no axes")};
    }
    if (description.kind == DetectorKind::Strips && description.x.cells + description.y.cells == 0)
        return {QStringLiteral("x.cells"), tr("the strips of neither x nor y are stated")};
    return {};
}

DetectorFault wiringFault(const DetectorDescription &description, Size size)
{
    const auto [cells, readings] = size;
    const QVector<int> &wiring = description.wiring;
    if (wiring.isEmpty())
        return readings < cells ? DetectorFault{QStringLiteral("readings"),
                                                tr("there are fewer readings (%1) than cells (%2)")
                                                    .arg(readings)
                                                    .arg(cells)}
                                : DetectorFault();
    if (wiring.size() != cells)
        return {QStringLiteral("wiring"),
                tr("has %1 for %2")
                    .arg(tr("%n entry/entries", nullptr, wiring.size()),
                         tr("%n cell(s)", nullptr, cells))};
    QVector<int> cellOf(readings, -1);
    for (int cell = 0; cell < cells; ++cell) {
        const int reading = wiring[cell];
        if (reading == -1)
            continue;
        if (reading < 0 || reading >= readings)
            return {place("wiring", cell), tr("there is no reading %1").arg(reading + 1)};
        if (cellOf[reading] >= 0)
            return {place("wiring", cell), tr("reading %1 is wired twice").arg(reading + 1)};
        cellOf[reading] = cell;
    }
    return {};
}

DetectorFault channelsFault(const DetectorDescription &description, int readings)
{
    const QVector<DetectorChannel> &channels = description.channels;
    if (!channels.isEmpty() && channels.size() != readings)
        return {QStringLiteral("channels"),
                tr("has %1 for %2")
                    .arg(tr("%n entry/entries", nullptr, channels.size()),
                         tr("%n reading(s)", nullptr, readings))};
    for (int i = 0; i < channels.size(); ++i) {
        const DetectorChannel &channel = channels[i];
        if (!isPlainText(channel.name, kLongestName))
            return {place("channels.names", i),
                    tr("is not a text of at most %1 characters").arg(kLongestName)};
        if (!std::isnormal(channel.gain))
            return {place("channels.gain", i), tr("is 0 or not a usable number")};
        if (!std::isfinite(channel.pedestal))
            return {place("channels.pedestal", i), tr("is not a usable number")};
        if (std::isnan(channel.saturation))
            return {place("channels.saturation", i), tr("is not a usable number")};
    }
    return {};
}

//! Returns what is wrong beside the axes.
DetectorFault restFault(const DetectorDescription &description, Size size)
{
    if (!isPlainText(description.title, kLongestTitle))
        return {QStringLiteral("title"),
                tr("is not a text of at most %1 characters").arg(kLongestTitle)};
    if (size.readings < 1 || size.readings > DetectorLayout::maxReadings)
        return {QStringLiteral("readings"),
                tr("must be between 1 and %1").arg(DetectorLayout::maxReadings)};
    if (!std::isnan(description.noise)
        && !(description.noise > 0 && std::isfinite(description.noise)))
        return {QStringLiteral("noise"), tr("is not above 0")};
    for (const VerdictLimitField &field : verdictLimitFields) {
        const double limit = description.verdictLimits.*field.limit;
        if (!(limit >= 0 && std::isfinite(limit)))
            return {QStringLiteral("verdict.") + QLatin1String(field.key),
                    tr("is not a number from 0 on")};
    }
    if (DetectorFault fault = wiringFault(description, size); !fault.isEmpty())
        return fault;
    return channelsFault(description, size.readings);
}

bool sameAxis(const DetectorAxis &one, const DetectorAxis &other)
{
    const bool samePitch =
        one.pitch == other.pitch || (std::isnan(one.pitch) && std::isnan(other.pitch));
    return one.cells == other.cells && samePitch && one.positions == other.positions
        && one.widths == other.widths && one.offset == other.offset && one.unit == other.unit
        && one.reversed == other.reversed;
}

bool sameDetector(const DetectorDescription &one, const DetectorDescription &other)
{
    const bool sameNoise =
        one.noise == other.noise || (std::isnan(one.noise) && std::isnan(other.noise));
    return one.kind == other.kind && one.title == other.title && sameAxis(one.x, other.x)
        && sameAxis(one.y, other.y) && one.wiring == other.wiring && one.readings == other.readings
        && one.channels == other.channels && one.density == other.density && sameNoise
        && one.verdictLimits == other.verdictLimits
        && one.hasOwnVerdictLimits() == other.hasOwnVerdictLimits();
}

QString unitText(const DetectorDescription &description)
{
    const DetectorAxis &axis = description.x.cells > 0 ? description.x : description.y;
    return axis.unit.isEmpty() ? tr("positions in cells") : axis.unit;
}

} // namespace

DetectorLayout::DetectorLayout()
    : d(new DetectorLayoutData)
{
}

DetectorLayout::DetectorLayout(const DetectorLayout &other) = default;
DetectorLayout &DetectorLayout::operator=(const DetectorLayout &other) = default;
DetectorLayout::~DetectorLayout() = default;

DetectorLayout DetectorLayout::fromDescription(const DetectorDescription &description,
                                               DetectorFault *fault)
{
    DetectorFault found = axesFault(description);
    const Size size = found.isEmpty() ? Size::of(description) : Size();
    if (found.isEmpty())
        found = restFault(description, size);
    if (fault)
        *fault = found;
    DetectorLayout layout;
    if (!found.isEmpty())
        return layout;
    DetectorLayoutData &data = *layout.d;
    data.empty = false;
    data.description = description;
    data.description.readings = size.readings;
    const bool ordinary = std::all_of(description.channels.begin(),
                                      description.channels.end(),
                                      [](const DetectorChannel &channel) {
                                          return channel == DetectorChannel();
                                      });
    if (ordinary)
        data.description.channels.clear();
    data.cells = size.cells;
    data.x = AxisPlaces::of(description.x, description.density);
    data.y = AxisPlaces::of(description.y, description.density);
    data.unwired = int(std::count(description.wiring.begin(), description.wiring.end(), -1));
    return layout;
}

DetectorLayout DetectorLayout::stripPair()
{
    constexpr int strips = 32;
    constexpr int firstOfY = 64;
    DetectorDescription description;
    description.kind = DetectorKind::Strips;
    description.x = DetectorAxis::uniform(strips, 2.0, QStringLiteral("mm"));
    description.y = description.x;
    description.readings = RoundPixelDetector::kReadings;
    description.wiring.resize(2 * strips);
    std::iota(description.wiring.begin(), description.wiring.begin() + strips, 0);
    std::iota(description.wiring.begin() + strips, description.wiring.end(), firstOfY);
    return fromDescription(description);
}

DetectorLayout DetectorLayout::pixelMatrix()
{
    using namespace RoundPixelDetector;
    // Rounded to single precision, so that results equal those of the profile display.
    constexpr double pitch = 3.8F;
    DetectorDescription description;
    description.kind = DetectorKind::Matrix;
    description.x = DetectorAxis::uniform(kSide, pitch, QStringLiteral("mm"));
    description.y = description.x;
    description.y.reversed = true; // the first row is the upper edge
    description.readings = kReadings;
    for (int row = 0; row < kSide; ++row)
        for (int column = 0; column < kSide; ++column)
            description.wiring.append(RoundPixelDetector::readingAt(row, column));
    return fromDescription(description);
}

bool DetectorLayout::isEmpty() const
{
    return d->empty;
}

const DetectorDescription &DetectorLayout::description() const
{
    return d->description;
}

DetectorKind DetectorLayout::kind() const
{
    return d->description.kind;
}

QString DetectorLayout::summary() const
{
    if (isEmpty())
        return Corvale_Qt::tr("no detector");
    const DetectorDescription &described = d->description;
    QString text;
    if (described.kind == DetectorKind::Channels)
        text = Corvale_Qt::tr("%n channel(s)", nullptr, described.readings);
    else if (described.kind == DetectorKind::Strips)
        text = Corvale_Qt::tr("strips %1 + %2, %3")
                   .arg(described.x.cells)
                   .arg(described.y.cells)
                   .arg(unitText(described));
    else
        text = Corvale_Qt::tr("matrix %1 x %2, %3")
                   .arg(described.y.cells)
                   .arg(described.x.cells)
                   .arg(unitText(described));
    return described.title.isEmpty() ? text : described.title + QLatin1String(", ") + text;
}

int DetectorLayout::cells(Axis axis) const
{
    return d->stated(axis).cells;
}

int DetectorLayout::cells() const
{
    return d->cells;
}

int DetectorLayout::readings() const
{
    return d->description.readings;
}

int DetectorLayout::readingAt(int cell) const
{
    if (cell < 0 || cell >= d->cells)
        return -1;
    return d->description.wiring.isEmpty() ? cell : d->description.wiring[cell];
}

int DetectorLayout::unwiredCells() const
{
    return d->unwired;
}

DetectorChannel DetectorLayout::channel(int reading) const
{
    return d->description.channels.value(reading);
}

QString DetectorLayout::unit(Axis axis) const
{
    return d->stated(axis).unit;
}

bool DetectorLayout::isUniform(Axis axis) const
{
    return d->stated(axis).positions.isEmpty();
}

QVector<double> DetectorLayout::positions(Axis axis) const
{
    return d->places(axis).positions;
}

QVector<double> DetectorLayout::widths(Axis axis) const
{
    return d->places(axis).widths;
}

QVector<double> DetectorLayout::intervals(Axis axis) const
{
    return d->places(axis).intervals;
}

double DetectorLayout::positionAt(Axis axis, double index) const
{
    return axisPosition(d->stated(axis), index);
}

double DetectorLayout::lowerEdge(Axis axis) const
{
    return d->places(axis).lower;
}

double DetectorLayout::upperEdge(Axis axis) const
{
    return d->places(axis).upper;
}

bool DetectorLayout::operator==(const DetectorLayout &other) const
{
    return d == other.d
        || (isEmpty() == other.isEmpty() && sameDetector(d->description, other.d->description));
}

QDebug operator<<(QDebug debug, const DetectorLayout &layout)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "DetectorLayout(" << layout.summary() << ')';
    return debug;
}

} // namespace Corvale_Qt
