// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/AxisPlaces_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

//! Lengths beyond this are a mistake, and their squares must not overflow.
constexpr double kLongest = 1e9;
constexpr int kLongestUnit = 16;

bool isLength(double value)
{
    return std::abs(value) <= kLongest; // false for a NaN
}

QString numberText(double value)
{
    return QString::number(value, 'g', 10);
}

DetectorFault listFault(const QVector<double> &list, const QString &place)
{
    for (int i = 0; i < list.size(); ++i)
        if (!isLength(list[i]))
            return {QStringLiteral("%1[%2]").arg(place).arg(i), tr("is not a usable length")};
    return {};
}

//! The positions must rise, or fall, from each cell to the next.
DetectorFault orderFault(const QVector<double> &positions, const QString &place)
{
    const bool falling = positions.size() > 1 && positions[1] < positions[0];
    for (int i = 1; i < positions.size(); ++i) {
        const double step = positions[i] - positions[i - 1];
        if (falling ? step < 0 : step > 0)
            continue;
        return {QStringLiteral("%1[%2]").arg(place).arg(i),
                tr("%1 follows %2: positions must rise, or fall, without repeating")
                    .arg(numberText(positions[i]), numberText(positions[i - 1]))};
    }
    return {};
}

double widthAt(const DetectorAxis &axis, int cell)
{
    return axis.widths.size() == 1 ? axis.widths.first() : axis.widths[cell];
}

DetectorFault widthFault(const DetectorAxis &axis, const QString &place)
{
    if (axis.widths.isEmpty())
        return {};
    if (axis.widths.size() != 1 && axis.widths.size() != axis.cells)
        return {place,
                tr("has %1 for %2")
                    .arg(tr("%n width(s)", nullptr, axis.widths.size()),
                         tr("%n cell(s)", nullptr, axis.cells))};
    if (DetectorFault fault = listFault(axis.widths, place); !fault.isEmpty())
        return fault;
    constexpr double rounding = 1 + 1e-9;
    for (int i = 0; i < axis.cells; ++i) {
        const QString cell = QStringLiteral("%1[%2]").arg(place).arg(i);
        if (!(widthAt(axis, i) > 0))
            return {cell, tr("is not above 0")};
        if (i == 0)
            continue;
        const double distance = std::abs(axisPosition(axis, i) - axisPosition(axis, i - 1));
        if (widthAt(axis, i) + widthAt(axis, i - 1) > 2 * distance * rounding)
            return {cell, tr("overlaps the cell before it")};
    }
    return {};
}

} // namespace

double axisPosition(const DetectorAxis &axis, double index)
{
    double own = 0;
    if (axis.positions.size() == 1) {
        own = axis.positions.first();
    } else if (!axis.positions.isEmpty()) {
        const int before = int(std::clamp(std::floor(index), 0.0, axis.positions.size() - 2.0));
        const double step = axis.positions[before + 1] - axis.positions[before];
        own = axis.positions[before] + (index - before) * step;
    } else if (!std::isnan(axis.pitch)) {
        own = axis.pitch * (index - (axis.cells - 1) / 2.0);
    } else {
        return (axis.reversed ? axis.cells - index : index + 1) + axis.offset;
    }
    return (axis.reversed ? -own : own) + axis.offset;
}

AxisPlaces AxisPlaces::of(const DetectorAxis &axis, bool density)
{
    AxisPlaces places;
    for (int i = 0; i < axis.cells; ++i)
        places.positions.append(axisPosition(axis, i));
    const bool alone = axis.cells == 1;
    double only = std::isnan(axis.pitch) ? 1.0 : axis.pitch;
    if (alone && !axis.widths.isEmpty())
        only = axis.widths.first();
    for (int i = 0; i < axis.cells; ++i) {
        const auto distance = [&](int cell) {
            return std::abs(places.positions[cell + 1] - places.positions[cell]);
        };
        // The outermost cells reach as far outwards as inwards.
        const double before = alone ? only : distance(i > 0 ? i - 1 : 0);
        const double behind = alone ? only : distance(std::min(i, axis.cells - 2));
        const double interval = (before + behind) / 2;
        places.intervals.append(interval);
        places.widths.append(!axis.widths.isEmpty() ? widthAt(axis, i) : density ? 0.0 : interval);
    }
    if (axis.cells > 0) {
        const auto [first, last] = std::minmax(places.positions.first(), places.positions.last());
        const bool rises = places.positions.first() <= places.positions.last();
        places.lower = first - (rises ? places.intervals.first() : places.intervals.last()) / 2;
        places.upper = last + (rises ? places.intervals.last() : places.intervals.first()) / 2;
    }
    return places;
}

bool isPlainText(const QString &text, int longest)
{
    const bool printable = std::none_of(text.begin(), text.end(), [](QChar c) {
        return c.category() == QChar::Other_Control;
    });
    return printable && text.size() <= longest && text == text.simplified()
        && text == QString::fromUtf8(text.toUtf8());
}

DetectorFault axisFault(const DetectorAxis &axis, const QString &name, int most)
{
    const QString positions = name + QLatin1String(".positions");
    if (axis.cells < 0 || axis.cells > most)
        return {name + QLatin1String(".cells"), tr("must be between 0 and %1").arg(most)};
    if (!isPlainText(axis.unit, kLongestUnit))
        return {name + QLatin1String(".unit"),
                tr("is not a text of at most %1 characters").arg(kLongestUnit)};
    if (!axis.positions.isEmpty() && axis.positions.size() != axis.cells)
        return {positions,
                tr("has %1 for %2")
                    .arg(tr("%n position(s)", nullptr, axis.positions.size()),
                         tr("%n cell(s)", nullptr, axis.cells))};
    if (!axis.positions.isEmpty() && !std::isnan(axis.pitch))
        return {name + QLatin1String(".pitch"), tr("is stated beside positions")};
    if (!std::isnan(axis.pitch) && !(axis.pitch > 0 && isLength(axis.pitch)))
        return {name + QLatin1String(".pitch"), tr("is not above 0")};
    if (!isLength(axis.offset))
        return {name + QLatin1String(".offset"), tr("is not a usable length")};
    if (DetectorFault fault = listFault(axis.positions, positions); !fault.isEmpty())
        return fault;
    if (DetectorFault fault = orderFault(axis.positions, positions); !fault.isEmpty())
        return fault;
    return widthFault(axis, name + QLatin1String(".widths"));
}

} // namespace Corvale_Qt
