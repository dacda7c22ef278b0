// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"

#include <QPointF>
#include <QVector>

namespace Corvale_Qt {

/*! The spots of a position error plot, one for each row of its model, and the mean of their errors. Appending a
    spot takes constant time; any other change sums all errors again. */
class PositionErrorList
{
public:
    using Spot = RVXPositionErrorPlot::PositionErrorSpot;

    int size() const { return m_spots.size(); }
    const Spot &at(int row) const { return m_spots.at(row); }

    //! Replaces all spots. Returns false and does nothing if \a spots shares its data with the vector held.
    bool setErrorMap(const QVector<Spot> &spots);
    //! Inserts \a spots before \a row, from 0 to size().
    void insert(int row, const QVector<Spot> &spots);
    //! Overwrites the rows from \a first on with \a spots.
    void updateErrorSpots(int first, const QVector<Spot> &spots);
    void remove(int first, int count);

    //! Returns the arithmetic mean of the finite errors of each axis, in millimetres; NaN if there are none.
    QPointF meanError() const;
    //! Returns the energy of the newest spot in MeV; NaN if there are no spots.
    double energy() const;

private:
    struct Sum
    {
        double sum = 0.0;
        int count = 0;

        void add(double value);
        double mean() const;
    };

    void addErrorSpot(const Spot &spot);
    void addUp();

    QVector<Spot> m_spots;
    Sum m_x;
    Sum m_y;
};

} // namespace Corvale_Qt
