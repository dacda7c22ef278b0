// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/CellScreening.h"

#include "corvale_qt/numerics/NumberPair_p.h"
#include "corvale_qt/numerics/WideRegisters_p.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Corvale_Qt {

namespace {

constexpr double kSigmaPerMedianSize = 1.4826; // of a normal distribution
constexpr int kReach = 2; //!< neighbours on each side in a profile
constexpr int kLeastNeighbours = 2;
constexpr int kEnoughNeighbours = 4; //!< for a median
constexpr double kWiggleInNoise = 3; //!< a steady flank may turn back by this much
//! This many differences suffice to estimate the noise of a matrix.
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
    double highest() const { return *std::max_element(values.begin(), values.begin() + count); }

    bool isHot(double value, double noise, const HotCellLimits &limits)
    {
        if (count < kLeastNeighbours)
            return false;
        std::sort(values.begin(), values.begin() + count);
        const double highest = values[std::size_t(count - 1)];
        const double median =
            (values[std::size_t(count / 2)] + values[std::size_t((count - 1) / 2)]) / 2;
        // Of few neighbours, as at an edge, the median may be the highest of a slope.
        const double spread = highest - (count < kEnoughNeighbours ? values[0] : median);
        const double excess = value - median;
        return excess > 0 && value > highest && excess > limits.inNoise * noise
            && excess > limits.inSpread * spread && excess > limits.inLevel * highest;
    }
};

//! The two cells on each side of a cell along a line through it, the nearer one first.
struct Flanks
{
    std::array<double, kReach> before{};
    std::array<double, kReach> behind{};
};

//! A cell of a matrix.
struct MatrixPlace
{
    int row;
    int column;
    int rows;
    int columns;
};

//! Returns whether a cell stands out from a flank, which rises or falls steadily but for the noise.
bool isHotOnFlank(double value, const Flanks &flanks, double noise, const HotCellLimits &limits)
{
    const auto &[before, behind] = flanks;
    const double wiggle = kWiggleInNoise * noise;
    const bool rises = before[1] <= before[0] + wiggle && before[0] <= behind[0] + wiggle
        && behind[0] <= behind[1] + wiggle;
    const bool falls = before[1] >= before[0] - wiggle && before[0] >= behind[0] - wiggle
        && behind[0] >= behind[1] - wiggle;
    const double higher = std::max(before[0], behind[0]);
    const double lower = std::max(std::min(before[0], behind[0]), noise);
    // Where readings are suppressed, neither the noise nor the foot of the flank is known.
    const double expected = lower > 0 ? std::sqrt(higher * lower) : higher;
    return (rises || falls) && higher > 0 && value > higher + limits.inNoise * noise
        && value > limits.onFlank * expected;
}

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

//! Returns whether a cell of a matrix stands out from a flank along a line whose cells are \a step apart in memory.
bool isHotAlong(const double *cell,
                int place,
                int cells,
                std::ptrdiff_t step,
                double noise,
                const HotCellLimits &limits)
{
    if (place < kReach || place >= cells - kReach)
        return false;
    const Flanks flanks{{cell[-step], cell[-2 * step]}, {cell[step], cell[2 * step]}};
    return isHotOnFlank(*cell, flanks, noise, limits);
}

//! Returns whether a cell that lies above all its neighbours stands out from a flank along its row or its column.
bool isHotOnSlope(const double *cells,
                  const MatrixPlace &place,
                  double highest,
                  double noise,
                  const HotCellLimits &limits)
{
    const double *cell = cells + std::ptrdiff_t(place.row) * place.columns + place.column;
    return *cell > highest + limits.inNoise * noise
        && (isHotAlong(cell, place.column, place.columns, 1, noise, limits)
            || isHotAlong(cell, place.row, place.rows, place.columns, noise, limits));
}

//! The extremes among the neighbours of each of two cells inside a matrix.
struct NeighbourRange
{
    NumberPair lowest;
    NumberPair highest;

    void add(NumberPair neighbours)
    {
        lowest = neighbours < lowest ? neighbours : lowest;
        highest = neighbours > highest ? neighbours : highest;
    }
    void addSides(const double *cells)
    {
        add(pairAt(cells - 1));
        add(pairAt(cells + 1));
    }
};

/*! Returns whether one of two cells inside a matrix lies above all its neighbours, and above the lowest by more than \a least. It may
    also return true for a cell beside a NaN. */
bool mayBeHot(const double *cells, std::ptrdiff_t columns, double least)
{
    const double *before = cells - columns, *behind = cells + columns;
    NeighbourRange range{pairAt(before), pairAt(before)};
    range.addSides(before);
    range.addSides(cells);
    range.add(pairAt(behind));
    range.addSides(behind);
    const auto mayBe = [&](int cell) {
        // Every ninth cell is the highest, but hardly any stands out from the noise.
        return cells[cell] - range.lowest[cell] > least && cells[cell] > range.highest[cell];
    };
    return mayBe(0) || mayBe(1);
}

bool isHotInMatrix(const double *cells,
                   const MatrixPlace &place,
                   double noise,
                   const HotCellLimits &limits)
{
    const auto &[row, column, rows, columns] = place;
    const double value = cells[std::ptrdiff_t(row) * columns + column];
    Neighbours neighbours;
    for (int r = std::max(row - 1, 0); r <= std::min(row + 1, rows - 1); ++r) {
        for (int c = std::max(column - 1, 0); c <= std::min(column + 1, columns - 1); ++c) {
            if (r == row && c == column)
                continue;
            const double neighbour = cells[std::ptrdiff_t(r) * columns + c];
            if (!(value > neighbour))
                return false;
            neighbours.add(neighbour);
        }
    }
    return neighbours.count > 0
        && (neighbours.isHot(value, noise, limits)
            || isHotOnSlope(cells, place, neighbours.highest(), noise, limits));
}

//! Finds the nearest good cells on each side of a cell. Returns false if there are too few.
bool flanksOf(const BeamProfile &profile, int cell, Flanks *flanks)
{
    const auto take = [&](int step, std::array<double, kReach> &side) {
        int found = 0;
        for (int i = cell + step; i >= 0 && i < profile.count() && found < kReach; i += step)
            if (!profile.has(i, CellFlag::Dead | CellFlag::Hot))
                side[std::size_t(found++)] = profile.density(i);
        return found == kReach;
    };
    return take(-1, flanks->before) && take(1, flanks->behind);
}

} // namespace

std::vector<int> hotCells(const double *cells, int rows, int columns, const HotCellLimits &limits)
{
    const double noise = noiseOfRows(cells, rows, columns);
    clearWideRegisters();
    std::vector<int> hot;
    const auto search = [&](int row, int from, int to) {
        for (int column = from; column < to; ++column) {
            if (isHotInMatrix(cells, {row, column, rows, columns}, noise, limits))
                hot.push_back(row * columns + column);
        }
    };
    for (int row = 0; row < rows; ++row) {
        int column = 0;
        if (row > 0 && row + 1 < rows && columns > 1) {
            search(row, 0, 1);
            const double *line = cells + std::ptrdiff_t(row) * columns;
            for (column = 1; column + 2 < columns; column += 2) {
                if (mayBeHot(line + column, columns, limits.inNoise * noise))
                    search(row, column, column + 2);
            }
        }
        search(row, column, columns);
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
        const double value = profile.density(i), itsNoise = noise / profile.scales[i];
        Flanks flanks;
        if (neighbours.isHot(value, itsNoise, limits)
            || (flanksOf(profile, i, &flanks) && isHotOnFlank(value, flanks, itsNoise, limits)))
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
