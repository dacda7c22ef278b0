// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/RingPictures_p.h"
#include "corvale_qt/beam/spots/RowSelection_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/StaleTiles_p.h"

#include <vector>

class QPainter;

namespace Corvale_Qt {

/*! Keeps the picture of a map with rings around its selected spots between two paints. A step of a rubber band draws only the tiles
    with rings that come or go. Rings are drawn in the order of the rows, and those that lie wholly below others are left out, which
    changes no pixel. */
class RingedMap
{
public:
    //! What the rings are drawn on, and where.
    struct Scene
    {
        QImage map; //!< in device pixels
        QImage path; //!< of the same size, drawn over the map; null if there is none
        const SpotList &spots;
        QRectF bounds; //!< what the map shows, in its units
        QSize size; //!< in pixels
        double pixelRatio = 1.0; //!< device pixels to a pixel
        QColor color; //!< of the rings
    };

    //! Returns the map with rings around the spots in \a rows.
    const QImage &image(const Scene &scene, const RowSpans &rows);
    //! Discards the picture. Call it before image() gets another list of spots, whose version may be the same.
    void reset();

private:
    //! What the places of the rings depend on.
    struct Places
    {
        quint64 spotsVersion = 0;
        QRectF bounds;
        QSize size;
    };

    //! Finds the rings of \a rows, and adds what has changed to \a stale.
    void findRings(const Scene &scene, const RowSpans &rows, StaleTiles &stale);
    void draw(const Scene &scene, const StaleTiles &stale);
    //! Returns the rings in these tiles that are not wholly hidden by later ones, the last one first.
    std::vector<SelectionRing> visibleRings(const StaleTiles &stale);
    void drawRing(QPainter &painter,
                  const Scene &scene,
                  const SelectionRing &ring,
                  const QVector<QRect> &parts);

    RingPictures m_pictures{QColor(), 1.0};
    Places m_places;
    std::vector<SelectionRing> m_rings;
    qint64 m_mapKey = 0;
    qint64 m_pathKey = 0;
    QImage m_image;
};

} // namespace Corvale_Qt
