// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/beam/spots/SpotPictureCache_p.h"

namespace Corvale_Qt {

/*! The pictures that compare a map with a target. Both are drawn alike, in the map's bounds and on one dose
    scale, that of the larger largest dose: otherwise a map of twice its target's dose would look the same.
    All is kept as long as neither changes. */
class MapComparison
{
public:
    MapComparison();

    /*! Blue where the map is above its target, red where it is below. \a scene is that of the map by
        itself. */
    const QImage &difference(const SpotList &map, const SpotList &target, const SpotScene &scene);

    //! The difference added at half opacity over \a data, the map's own picture of that version.
    const QImage &overlay(const SpotList &map,
                          const SpotList &target,
                          const SpotScene &scene,
                          const QImage &data,
                          quint64 dataVersion);

    //! The target's SpotList::version() that was drawn last.
    quint64 targetVersion() const { return m_targetVersion; }

private:
    //! Tells whether one of the two pictures is another than the one composed last.
    bool update(const SpotList &map, const SpotList &target, const SpotScene &scene);

    KeptPicture m_map;
    KeptPicture m_target;
    quint64 m_targetVersion = 0;
    QImage m_difference;
    QImage m_overlay;
    quint64 m_overlaid = 0;
};

} // namespace Corvale_Qt
