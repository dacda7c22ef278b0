// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/PictureBuffer_p.h"
#include "corvale_qt/beam/spots/SpotPainting_p.h"

namespace Corvale_Qt {

/*! Keeps a picture of spots between two paints. It is painted anew when its style or one of its spots has
    changed, and spots that were added at the end are painted over what is there. Both ways give the same
    picture, since spots are drawn in the order of their rows. */
class SpotPictureCache
{
public:
    //! How spots are drawn: drawSpots() or drawPath().
    using Draw = void (*)(QPainter &, const SpotList &, int first, const SpotStyle &);

    SpotPictureCache(std::unique_ptr<PictureBuffer> store, Draw draw);

    //! Brings the picture up to date with \a spots.
    void update(const SpotList &spots, const SpotStyle &style);
    //! Returns the picture as of the last update().
    const QImage &image() const { return m_buffer->image(); }
    //! Returns a number that grows whenever update() paints.
    quint64 version() const { return m_version; }
    //! Discards the picture. Call it before update() gets another list, whose version may be the same.
    void reset();
    //! Replaces the buffer that holds the picture, and discards the picture.
    void setBuffer(std::unique_ptr<PictureBuffer> store);

private:
    void begin(const SpotStyle &style);
    void paintFrom(int first, const SpotList &spots);

    std::unique_ptr<PictureBuffer> m_buffer;
    const Draw m_draw;
    SpotStyle m_style;
    int m_painted = 0;
    quint64 m_rewrites = 0;
    quint64 m_version = 0;
    bool m_valid = false;
};

} // namespace Corvale_Qt
