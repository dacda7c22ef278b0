// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QVector>

#include <cmath>

inline bool same(double one, double other)
{
    return one == other || (std::isnan(one) && std::isnan(other));
}

//! Returns the samples of a column of a plot model.
template<typename Model>
QVector<double> columnOf(const Model &model, int column)
{
    QVector<double> values;
    for (int row = 1; row < model.rowCount(); ++row)
        values << model.doubleData(row, column);
    return values;
}

//! Returns the last finite number among the first \a count of \a values, or \a otherwise.
inline double lastFinite(const QVector<double> &values, int count, double otherwise)
{
    while (count > 0 && !std::isfinite(values[count - 1]))
        --count;
    return count > 0 ? values[count - 1] : otherwise;
}

/*! Computes the averages of \a raw by their definition into \a averages, from index \a from on. Readings that are not
    finite stay and are skipped. \a before is the average before the first reading, if there is one. */
inline void average(const QVector<double> &raw, int length, int from, QVector<double> &averages,
                    double before = qQNaN())
{
    const double alpha = 1.0 / length;
    averages.resize(raw.size());
    for (int i = from; i < raw.size(); ++i) {
        const double last = lastFinite(averages, i, before);
        const bool isAveraged = length > 1 && std::isfinite(raw[i]) && std::isfinite(last);
        averages[i] = isAveraged ? (1.0 - alpha) * last + alpha * raw[i] : raw[i];
    }
}
