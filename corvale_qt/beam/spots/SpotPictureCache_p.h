// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/beam/spots/PictureBuffer_p.h"
#include "corvale_qt/beam/spots/SpotPainting_p.h"

namespace Corvale_Qt {

/*! A picture of spots that is kept: painted anew when its scene or a spot in it has changed, painted on
    where spots were only added at the end, else as it was. Both ways give the same picture, since spots are
    drawn in the order of their rows. */
class KeptPicture
{
public:
    //! drawSpots() or drawPath().
    using Draw = void (*)(QPainter &, const SpotList &, int first, const SpotScene &);

    KeptPicture(std::unique_ptr<PictureStore> store, Draw draw);

    //! Brings the picture up to date with \a spots.
    void update(const SpotList &spots, const SpotScene &scene);
    //! As of the last update().
    const QImage &image() const { return m_store->image(); }
    //! Grows whenever an update() paints.
    quint64 version() const { return m_version; }
    //! Forgets the picture; for other spots, which may count their changes alike.
    void reset();
    //! Another place to keep it; forgets the picture.
    void setStore(std::unique_ptr<PictureStore> store);

private:
    void begin(const SpotScene &scene);
    void paintFrom(int first, const SpotList &spots);

    std::unique_ptr<PictureStore> m_store;
    const Draw m_draw;
    SpotScene m_scene;
    int m_painted = 0;
    quint64 m_rewrites = 0;
    quint64 m_version = 0;
    bool m_valid = false;
};

} // namespace Corvale_Qt
