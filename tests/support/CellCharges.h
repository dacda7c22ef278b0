// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/numerics/BeamProfile.h"

#include <cmath>
#include <functional>
#include <random>

/*! Charges of cells under a density that a test knows, integrated by Simpson's rule and without the library. */
namespace CellCharges {

using Density = std::function<double(double)>;

inline Density gaussian(double mean, double sigma, double height = 1.0)
{
    return [=](double x) { return height * std::exp(-0.5 * std::pow((x - mean) / sigma, 2)); };
}

inline double integral(const Density &density, double from, double to)
{
    constexpr int steps = 64;
    const double h = (to - from) / steps;
    double sum = density(from) + density(to);
    for (int i = 1; i < steps; ++i)
        sum += (i % 2 ? 4 : 2) * density(from + i * h);
    return sum * h / 3;
}

//! Cells that touch each other halfway between the places; their positions are their own middles.
inline Corvale_Qt::BeamProfile touching(const QVector<double> &positions, const Density &density)
{
    Corvale_Qt::BeamProfile profile;
    const int last = positions.size() - 1;
    for (int i = 0; i <= last; ++i) {
        const double before = i > 0 ? positions[i] - positions[i - 1] : positions[1] - positions[0];
        const double behind =
            i < last ? positions[i + 1] - positions[i] : positions[last] - positions[last - 1];
        profile.positions << positions[i] + (behind - before) / 4;
        profile.intervals << (before + behind) / 2;
        profile.readings << integral(density, positions[i] - before / 2, positions[i] + behind / 2);
    }
    profile.widths = profile.scales = profile.intervals;
    return profile;
}

//! Strips of the same pitch, with the zero of their axis in the middle.
inline Corvale_Qt::BeamProfile strips(int count, double pitch, const Density &density)
{
    QVector<double> positions;
    for (int i = 0; i < count; ++i)
        positions << pitch * (i - (count - 1) / 2.0);
    return touching(positions, density);
}

//! Adds normally distributed noise to each reading; the seed is fixed.
inline void addNoise(Corvale_Qt::BeamProfile &profile, double sigma, unsigned seed = 7)
{
    std::mt19937 generator(seed);
    for (double &reading : profile.readings) {
        // The sum of twelve uniform numbers: the same on every standard library.
        double normal = -6;
        for (int i = 0; i < 12; ++i)
            normal += generator() / 4294967296.0;
        reading += sigma * normal;
    }
}

} // namespace CellCharges
