// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/BeamProfile.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr CellFlags kHoles = CellFlag::Dead | CellFlag::Hot;

bool allPositive(const QVector<double> &values)
{
    return std::all_of(values.begin(), values.end(), [](double value) {
        return value > 0 && std::isfinite(value);
    });
}

bool equalToABillionth(double one, double other)
{
    return std::abs(one - other) <= 1e-9 * std::abs(other);
}

} // namespace

BeamProfile BeamProfile::uniform(const QVector<double> &readings, double pitch, double first)
{
    BeamProfile profile;
    profile.readings = readings;
    profile.intervals.fill(pitch, readings.size());
    profile.widths = profile.intervals;
    profile.scales = profile.intervals;
    for (int i = 0; i < readings.size(); ++i)
        profile.positions.append(first + i * pitch);
    return profile;
}

bool BeamProfile::isUsable() const
{
    const int cells = count();
    const auto fits = [cells](int size) {
        return size == cells;
    };
    if (!fits(positions.size()) || !fits(intervals.size()) || !fits(widths.size())
        || !fits(scales.size()) || !(flags.isEmpty() || fits(flags.size())))
        return false;
    if (!allPositive(intervals) || !allPositive(scales))
        return false;
    for (int i = 0; i < cells; ++i) {
        const bool rises = i == 0 || positions[i] > positions[i - 1];
        if (!rises || !std::isfinite(positions[i]) || !std::isfinite(density(i))
            || !(widths[i] >= 0 && std::isfinite(widths[i])))
            return false;
    }
    return true;
}

bool BeamProfile::isUniform() const
{
    for (int i = 1; i < count(); ++i) {
        const double distance = positions[i] - positions[i - 1];
        if (!equalToABillionth(distance, positions[1] - positions[0])
            || !equalToABillionth(widths[i], widths[0]) || !equalToABillionth(scales[i], scales[0]))
            return false;
    }
    return true;
}

void BeamProfile::setFlag(int cell, CellFlag flag)
{
    if (flags.isEmpty())
        flags.resize(count());
    flags[cell] |= flag;
}

double BeamProfile::lowerEdge() const
{
    return positions.isEmpty() ? 0.0 : positions.first() - intervals.first() / 2;
}

double BeamProfile::upperEdge() const
{
    return positions.isEmpty() ? 0.0 : positions.last() + intervals.last() / 2;
}

BeamProfile BeamProfile::withoutHoles() const
{
    BeamProfile filled = *this;
    int before = -1;
    for (int cell = 0; cell < count(); ++cell) {
        if (!has(cell, kHoles)) {
            before = cell;
            continue;
        }
        int behind = cell + 1;
        while (behind < count() && has(behind, kHoles))
            ++behind;
        if (before < 0 && behind == count())
            break;
        const int left = before >= 0 ? before : behind;
        const int right = behind < count() ? behind : before;
        const double t = left == right
            ? 0.0
            : (positions[cell] - positions[left]) / (positions[right] - positions[left]);
        filled.readings[cell] = scales[cell] * ((1 - t) * density(left) + t * density(right));
    }
    return filled;
}

} // namespace Corvale_Qt
