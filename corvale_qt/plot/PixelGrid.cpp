// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PixelGrid_p.h"

#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

//! Returns whether doubles near \a x can be told apart within a column.
bool canDivide(double x, double step)
{
    constexpr double finest = 1e-12; // of x; a thousandth of a column is left
    return step > 0.0 && std::isfinite(x) && std::isfinite(step) && step > finest * std::abs(x);
}

} // namespace

PixelGrid PixelGrid::endingAt(double right, double width, int columns)
{
    PixelGrid grid;
    const double step = columns > 0 ? width / columns : 0.0;
    if (!canDivide(std::abs(right) + width, step))
        return grid;
    grid.step = step;
    grid.width = columns;
    grid.left = qint64(std::ceil(right / step)) - columns;
    return grid;
}

PixelGrid PixelGrid::between(double left, double right, int columns)
{
    PixelGrid grid;
    const double step = columns > 0 ? (right - left) / columns : 0.0;
    if (!canDivide(std::max(std::abs(left), std::abs(right)), step))
        return grid;
    grid.origin = left;
    grid.step = step;
    grid.width = columns;
    return grid;
}

qint64 PixelGrid::columnOf(double x) const
{
    constexpr double limit = 4e15; // doubles beyond have no fractions
    return qint64(std::floor(std::clamp((x - origin) / step, -limit, limit) + 0.5));
}

bool PixelGrid::describes(const QwtScaleMap &map) const
{
    const auto isAt = [this](double bound, qint64 column) {
        constexpr double rounding = 1e-3; // of a column
        return std::abs(bound - x(column)) <= rounding * step;
    };
    return isValid() && !map.transformation() && map.p2() - map.p1() == width
        && map.p1() == std::floor(map.p1()) && isAt(map.s1(), left) && isAt(map.s2(), left + width);
}

ColumnSpan PixelGrid::at(const QwtScaleMap &map, int first, int last) const
{
    const qint64 offset = left - qint64(map.p1());
    return {first + offset, last + offset};
}

} // namespace Corvale_Qt
