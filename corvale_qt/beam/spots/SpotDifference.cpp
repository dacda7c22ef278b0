// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotDifference_p.h"

#include <QPainter>

namespace Corvale_Qt {

namespace {

/*! The part by which one of the pictures exceeds the other, in \a tint at twice its brightness. \a keep is
    the mode that leaves the larger one of both (Lighten) or the smaller one (Darken) in the map's
    picture. */
QImage
excess(const QImage &map, const QImage &target, QPainter::CompositionMode keep, const QColor &tint)
{
    QImage picture = map;
    QPainter painter(&picture);
    painter.setCompositionMode(keep);
    painter.drawImage(0, 0, target);
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.drawImage(0, 0, target);
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.fillRect(picture.rect(), tint);
    painter.setCompositionMode(QPainter::CompositionMode_Overlay);
    painter.fillRect(picture.rect(), Qt::white);
    return picture;
}

} // namespace

SpotDifference compareMaps(const QImage &map, const QImage &target)
{
    return {excess(map, target, QPainter::CompositionMode_Lighten, Qt::blue),
            excess(map, target, QPainter::CompositionMode_Darken, Qt::red)};
}

} // namespace Corvale_Qt
