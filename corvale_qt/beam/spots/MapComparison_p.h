// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotPictureCache_p.h"

namespace Corvale_Qt {

/*! Composes the pictures that compare a map with a target. Both maps are drawn in the same bounds and on the
    same dose scale, which ends at the larger of their largest doses: on a scale for each, a map with twice
    the dose of its target would look like it. The pictures are kept until one of the maps changes. */
class MapComparison
{
public:
    //! How much of the difference is added to the map.
    static constexpr double overlayOpacity = 0.5;

    MapComparison();

    /*! Returns the difference: blue where the map is above its target, red where it is below. \a style is
        the style in which the map is drawn when it is not compared; its colours and its dose scale are not used. */
    const QImage &difference(const SpotList &map, const SpotList &target, const SpotStyle &style);

    /*! Returns \a data, a picture of the map, with the difference added to it at half opacity. \a dataVersion
        tells one picture of the map from the next. */
    const QImage &overlay(const SpotList &map,
                          const SpotList &target,
                          const SpotStyle &style,
                          const QImage &data,
                          quint64 dataVersion);

    //! Returns the SpotList::version() of the target that was drawn last.
    quint64 targetVersion() const { return m_targetVersion; }

private:
    //! Brings the pictures of both maps up to date, and returns whether one of them was painted.
    bool update(const SpotList &map, const SpotList &target, const SpotStyle &style);

    SpotPictureCache m_map;
    SpotPictureCache m_target;
    quint64 m_targetVersion = 0;
    QImage m_difference;
    QImage m_overlay;
    quint64 m_overlaid = 0;
};

} // namespace Corvale_Qt
