// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QVector>

#include <cmath>
#include <random>

/*! Profiles whose answer is known without any of the library's code. */
namespace Profiles {

//! Places of sixteen wires at unequal distances, closer together in the middle, in mm.
inline const QVector<double> unequalWires = [] {
    QVector<double> wires;
    for (const double wire : {1.5, 4.4, 7.0, 9.7, 12.8, 16.5, 21.0, 26.3}) {
        wires.prepend(-wire);
        wires.append(wire);
    }
    return wires;
}();

//! Height of a Gaussian in the middle of each of \a count bins, the first bin's middle at 0.
template<typename T>
QVector<T> gaussian(int count, double mean, double sigma, double height, double offset = 0)
{
    QVector<T> values(count);
    for (int i = 0; i < count; ++i)
        values[i] =
            static_cast<T>(offset + height * std::exp(-0.5 * std::pow((i - mean) / sigma, 2)));
    return values;
}

//! Every value changed by a normally distributed share of itself; the seed is fixed.
template<typename T>
QVector<T> withNoise(QVector<T> values, double share, unsigned seed = 7)
{
    std::mt19937 generator(seed);
    for (T &value : values) {
        // The sum of twelve uniform numbers: the same on every standard library.
        double normal = -6;
        for (int i = 0; i < 12; ++i)
            normal += generator() / 4294967296.0;
        value = static_cast<T>(value * (1 + share * normal));
    }
    return values;
}

} // namespace Profiles
