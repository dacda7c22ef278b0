// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/beam/spots/SpotLimits_p.h"

#include <QRectF>
#include <QVector>

namespace Corvale_Qt {

/*! The spots of a map, one per row of its model, and what is known of all of them. Appending costs what is appended,
    and any other change costs a look at a few of its neighbours. */
class SpotList
{
public:
    using MapSpot = SpotMapView::MapSpot;

    int size() const { return m_spots.size(); }
    const MapSpot &at(int row) const { return m_spots.at(row); }

    void assign(const QVector<MapSpot> &spots);
    //! Puts \a spots before \a row, which may be size().
    void insert(int row, const QVector<MapSpot> &spots);
    //! Nothing where the row holds just that already; tells whether it did change.
    bool replace(int row, const MapSpot &spot);
    void remove(int first, int count);

    //! The smallest rectangle around all drawable spots, 2.6 sigma around each centre; empty without spots.
    QRectF extent() const;
    //! The largest dose of a drawable spot, never below 0.
    float largestDose() const { return m_blocks.limits().dose; }
    int drawableCount() const { return m_blocks.limits().drawable; }

    /*! Row of the spot nearest to \a point among those that have it within their sigma, of equals the last;
        or -1. */
    int nearest(const QPointF &point) const;

    //! Grows with every change.
    quint64 version() const { return m_version; }
    //! Grows with every change that is more than spots added after the last one.
    quint64 rewrites() const { return m_rewrites; }

private:
    void rewritten();

    QVector<MapSpot> m_spots;
    SpotBlocks m_blocks;
    quint64 m_version = 0;
    quint64 m_rewrites = 0;
};

} // namespace Corvale_Qt
