// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/SpanIntegral_p.h"
#include "corvale_qt/scope/TimeGaps_p.h"

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

//! Adds the trapezoid between neighbouring readings; one that is not finite belongs to none.
void addStep(SpanIntegral &sum, const double *x, const double *values)
{
    const double step = x[1] - x[0];
    const double area = 0.5 * (values[0] + values[1]) * step;
    if (!std::isfinite(area))
        return;
    sum.integral += area;
    sum.covered += step;
}

} // namespace

SpanIntegral
SpanIntegral::ofRows(const PlotDataReader &reader, int column, RowRange rows, const TimeGaps &gaps)
{
    constexpr int chunk = 1024;
    double x[chunk + 1];
    double values[chunk + 1];
    SpanIntegral sum;
    const auto addRows = [&](RowRange part) { // no gap within it
        for (int row = part.first; row < part.last; row += chunk) {
            const int steps = std::min(chunk, part.last - row);
            reader.read(0, row, steps + 1, x);
            reader.read(column, row, steps + 1, values);
            for (int i = 0; i < steps; ++i)
                addStep(sum, x + i, values + i);
        }
    };
    int first = rows.first;
    gaps.forEach({rows.first + 1, rows.last}, [&](int row) {
        addRows({first, row - 1});
        first = row;
        ++sum.outages;
    });
    addRows({first, rows.last});
    return sum;
}

void SpanIntegral::writeTo(ScopeMarkerStatistics &result) const
{
    result.integral = integral;
    result.coveredTime = covered;
    result.outages = outages;
}

} // namespace Corvale_Qt
