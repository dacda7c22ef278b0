// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotList_p.h"

#include <QRect>
#include <QRectF>

namespace Corvale_Qt {

/*! Finds where the spots of a map lie on its viewport, and which spot lies under a pixel. All places are in
    pixels of the viewport. */
class SpotHitTest
{
public:
    /*! \a picture is the part of the viewport that the map fills, and \a bounds what it shows there, in the
        map's units. \a spots must outlive this object. */
    SpotHitTest(const SpotList &spots, const QRectF &bounds, const QRect &picture);

    //! Returns the centre of the spot in \a row. The bounds must not be empty.
    QPointF pixelOf(int row) const;
    //! Returns the sigma of the spot in \a row. The bounds must not be empty.
    double radiusOf(int row) const;
    /*! Returns the square around the spot in \a row whose half side is \a sigmas times the spot's sigma; null
        if the spot is not on the map. */
    QRect spotRect(int row, double sigmas) const;
    //! Returns the row of the spot nearest to \a point among those whose sigma reaches it, or -1.
    int rowAt(const QPoint &point) const;
    //! Returns the rows of the spots whose centre lies in a rectangle, rising.
    QVector<int> rowsIn(const QRect &rect) const;
    //! Returns what a tool tip tells about the spot in \a row.
    QString toolTip(int row) const;

private:
    struct MapPart;

    //! Returns the pixels for each unit of the map. The bounds must not be empty.
    double pixelsPerUnit() const;
    //! Returns the part of the map under some pixels.
    MapPart partUnder(const QRectF &pixels) const;

    const SpotList &m_spots;
    const QRectF m_bounds;
    const QRectF m_picture;
};

} // namespace Corvale_Qt
