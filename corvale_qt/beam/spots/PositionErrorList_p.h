// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the position error plot.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"

#include <QPointF>
#include <QVector>

namespace Corvale_Qt {

/*! The spots of a position error plot, one per row of its model, and the mean of their errors. A spot added
    at the end costs that spot, anything else costs all of them. */
class PositionErrorList
{
public:
    using Spot = RVXPositionErrorPlot::PositionErrorSpot;

    int size() const { return m_spots.size(); }
    const Spot &at(int row) const { return m_spots.at(row); }

    //! False, and nothing done, where \a spots is the very vector that is held already.
    bool setErrorMap(const QVector<Spot> &spots);
    //! Puts \a spots before \a row, which may be size().
    void insert(int row, const QVector<Spot> &spots);
    //! Writes \a spots over those from row \a first on.
    void updateErrorSpots(int first, const QVector<Spot> &spots);
    void remove(int first, int count);

    //! The arithmetic mean of the finite errors, each axis by itself; NaN where there are none.
    QPointF meanError() const;
    //! Of the newest spot; NaN where there is none.
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
