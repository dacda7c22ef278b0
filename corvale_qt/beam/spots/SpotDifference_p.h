// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QImage>

namespace Corvale_Qt {

//! Two pictures that show where two maps differ, one for each direction.
struct SpotDifference
{
    //! Blue where the map is above its target, else black.
    QImage above;
    //! Red where the map is below its target, else black.
    QImage below;
};

/*! Compares two pictures of the same size, white spots on an opaque black ground: on a transparent one
    black would come out magenta, and of coloured spots only their blue, or red, would be left. Composed by
    the raster engine, since on OpenGL the modes that this needs silently do something else. */
SpotDifference compareMaps(const QImage &map, const QImage &target);

} // namespace Corvale_Qt
