// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/CellScreening.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr double kSigmaPerMedianSize = 1.4826; // of a normal distribution
constexpr int kReach = 2; //!< neighbours on each side in a profile
constexpr int kLeastNeighbours = 2;
//! So many differences tell the noise of a matrix well enough.
constexpr std::size_t kMostDifferences = 8192;

double medianSize(std::vector<double> values)
{
    if (values.empty())
        return 0;
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

//! At most eight neighbours of a cell.
struct Neighbours
{
    std::array<double, 8> values{};
    int count = 0;

    void add(double value) { values[std::size_t(count++)] = value; }

    bool isHot(double value, double noise, const HotCellLimits &limits)
    {
        if (count < kLeastNeighbours)
            return false;
        std::sort(values.begin(), values.begin() + count);
        const double highest = values[std::size_t(count - 1)];
        const double median =
            (values[std::size_t(count / 2)] + values[std::size_t((count - 1) / 2)]) / 2;
        const double excess = value - median;
        return excess > 0 && value > highest && excess > limits.inNoise * noise
            && excess > limits.inSpread * (highest - median);
    }
};

double noiseOfRows(const double *cells, int rows, int columns)
{
    const int step = std::max(1, int(std::size_t(rows) * std::size_t(columns) / kMostDifferences));
    std::vector<double> sizes;
    for (int i = 1; i + 1 < rows * columns; i += step) {
        const bool inside = i % columns != 0 && i % columns != columns - 1;
        if (inside)
            sizes.push_back(std::abs(cells[i - 1] - 2 * cells[i] + cells[i + 1]));
    }
    return kSigmaPerMedianSize * medianSize(std::move(sizes)) / std::sqrt(6.0);
}

} // namespace

std::vector<int> hotCells(const double *cells, int rows, int columns, const HotCellLimits &limits)
{
    const double noise = noiseOfRows(cells, rows, columns);
    std::vector<int> hot;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const double value = cells[row * columns + column];
            Neighbours neighbours;
            bool highest = true;
            for (int r = std::max(row - 1, 0); highest && r <= std::min(row + 1, rows - 1); ++r) {
                for (int c = std::max(column - 1, 0); c <= std::min(column + 1, columns - 1); ++c) {
                    if (r == row && c == column)
                        continue;
                    const double neighbour = cells[r * columns + c];
                    highest = highest && value > neighbour;
                    neighbours.add(neighbour);
                }
            }
            if (highest && neighbours.isHot(value, noise, limits))
                hot.push_back(row * columns + column);
        }
    }
    return hot;
}

void flagHotCells(BeamProfile &profile, const HotCellLimits &limits)
{
    const double noise = profile.noise > 0 ? profile.noise : estimatedNoise(profile);
    for (int i = 0; i < profile.count(); ++i) {
        if (profile.has(i, CellFlag::Dead))
            continue;
        Neighbours neighbours;
        for (int j = std::max(i - kReach, 0); j <= std::min(i + kReach, profile.count() - 1); ++j)
            if (j != i && !profile.has(j, CellFlag::Dead))
                neighbours.add(profile.density(j));
        if (neighbours.isHot(profile.density(i), noise / profile.scales[i], limits))
            profile.setFlag(i, CellFlag::Hot);
    }
}

double estimatedNoise(const BeamProfile &profile)
{
    std::vector<int> cells;
    for (int i = 0; i < profile.count(); ++i)
        if (!profile.has(i, CellFlag::Dead | CellFlag::Hot))
            cells.push_back(i);
    if (cells.size() < 5)
        return 0;
    std::vector<double> sizes;
    double scale = 0;
    for (std::size_t i = 1; i + 1 < cells.size(); ++i) {
        sizes.push_back(std::abs(profile.density(cells[i - 1]) - 2 * profile.density(cells[i])
                                 + profile.density(cells[i + 1])));
        scale += profile.scales[cells[i]] / double(cells.size() - 2);
    }
    return scale * kSigmaPerMedianSize * medianSize(std::move(sizes)) / std::sqrt(6.0);
}

} // namespace Corvale_Qt
