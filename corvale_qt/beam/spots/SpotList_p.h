// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotLimits_p.h"

#include <QRectF>
#include <QVector>

#include <deque>
#include <optional>

namespace Corvale_Qt {

/*! The spots of a map, one for each row of its model, with their extent and largest dose. The cost of appending
    grows with what is appended; any other change also reads a block of neighbouring rows. */
class SpotList
{
public:
    using MapSpot = SpotMapView::MapSpot;

    int size() const { return m_spots.size(); }
    const MapSpot &at(int row) const { return m_spots.at(row); }

    //! Replaces all spots.
    void assign(const QVector<MapSpot> &spots);
    //! Inserts \a spots before \a row, from 0 to size().
    void insert(int row, const QVector<MapSpot> &spots);
    //! Overwrites one row, and returns whether it has changed.
    bool replace(int row, const MapSpot &spot);
    void remove(int first, int count);

    //! Returns the smallest rectangle that holds all drawable spots with 2.6 sigma around each; empty without any.
    QRectF extent() const;
    //! Returns the largest dose of the drawable spots, at least 0.
    float largestDose() const { return m_blocks.limits().dose; }
    int drawableCount() const { return m_blocks.limits().drawable; }

    /*! Returns the row of the spot nearest to \a point among those whose sigma reaches it; of spots at the same
        distance the last one; -1 if there is none. */
    int nearest(const QPointF &point) const;

    //! Returns a number that grows with each change.
    quint64 version() const { return m_version; }
    //! Returns a number that grows with each change other than appending.
    quint64 rewrites() const { return m_rewrites; }
    /*! Returns the part of the map that the drawable spots reach which were inserted, overwritten or removed since rewrites() had
        the value \a before; nothing if all were replaced, or if that was too many changes ago. Appended spots do not count. */
    std::optional<QRectF> changedSince(quint64 before) const;

private:
    void rewritten(const SpotLimits &touched);

    QVector<MapSpot> m_spots;
    SpotBlocks m_blocks;
    quint64 m_version = 0;
    quint64 m_rewrites = 0;
    std::deque<SpotLimits> m_touched; //!< by each of the last rewrites
};

} // namespace Corvale_Qt
