// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotLayer_p.h"

namespace Corvale_Qt {

/*! Keeps a picture of spots between two paints. If its style has changed it is drawn anew, otherwise only where spots have
    changed, if that is possible; spots that were added at the end are drawn over what is there. All ways give the same picture,
    since spots are drawn in the order of their rows. */
class SpotPictureCache
{
public:
    explicit SpotPictureCache(std::unique_ptr<SpotLayer> layer);

    //! Brings the picture up to date with \a spots.
    void update(const SpotList &spots, const SpotStyle &style);
    //! Returns the picture as of the last update().
    const QImage &image() const { return m_layer->image(); }
    //! Returns a number that grows whenever update() draws.
    quint64 version() const { return m_version; }
    //! Discards the picture. Call it before update() gets another list, whose version may be the same.
    void reset();
    //! Replaces the picture, and discards what was drawn.
    void setLayer(std::unique_ptr<SpotLayer> layer);

private:
    void drawAll(const SpotList &spots, const SpotStyle &style);
    bool redrawChanges(const SpotList &spots);

    std::unique_ptr<SpotLayer> m_layer;
    SpotStyle m_style;
    int m_drawn = 0;
    quint64 m_spotsVersion = 0;
    quint64 m_rewrites = 0;
    quint64 m_version = 0;
    bool m_valid = false;
};

} // namespace Corvale_Qt
