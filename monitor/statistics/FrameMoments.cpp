// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/FrameMoments.h"

#include <cmath>

namespace Monitor {

namespace {

struct Axis
{
    double first = 0.0;
    double second = 0.0;

    void add(double position, double weight)
    {
        first += position * weight;
        second += position * position * weight;
    }
    double centroid(double total) const { return first / total; }
    double rms(double total) const
    {
        const double mean = centroid(total);
        return std::sqrt(second / total - mean * mean);
    }
};

} // namespace

FrameMoments FrameMoments::of(const double *cells, int rows, int columns)
{
    FrameMoments moments;
    Axis columnAxis, rowAxis;
    moments.maximum = std::nan("");
    for (int row = 1; row <= rows; ++row) {
        for (int column = 1; column <= columns; ++column) {
            const double cell = *cells++;
            if (!std::isfinite(cell))
                continue;
            moments.total += cell;
            columnAxis.add(column, cell);
            rowAxis.add(row, cell);
            if (!(cell <= moments.maximum)) {
                moments.maximum = cell;
                moments.maximumRow = row;
                moments.maximumColumn = column;
            }
        }
    }
    const double total = moments.total > 0.0 ? moments.total : std::nan("");
    moments.centroidColumn = columnAxis.centroid(total);
    moments.centroidRow = rowAxis.centroid(total);
    moments.rmsColumn = columnAxis.rms(total);
    moments.rmsRow = rowAxis.rms(total);
    return moments;
}

} // namespace Monitor
