// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/MapComparison_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"

#include <QPainter>

namespace Corvale_Qt {

namespace {

/*! Returns the part by which one picture exceeds the other, in \a tint and twice as bright: that of the map with
    Lighten as \a keep, which leaves the brighter one of two pixels, that of the target with Darken.

    Both pictures hold white spots on an opaque black background: on a transparent one, black would become magenta,
    and of coloured spots only the blue or red part would be left. They are in memory, since OpenGL silently does
    something else in the modes that this needs. */
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

//! Adds \a other to \a picture.
void add(QImage &picture, const QImage &other, double opacity)
{
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.setOpacity(opacity);
    painter.drawImage(0, 0, other);
}

} // namespace

MapComparison::MapComparison()
    : m_map(makeShadedLayer())
    , m_target(makeShadedLayer())
{
}

bool MapComparison::update(const SpotList &map, const SpotList &target, const SpotStyle &style)
{
    SpotStyle common = style;
    common.fullScaleDose = qMax(map.largestDose(), target.largestDose());
    common.color = Qt::white;
    common.background = Qt::black;

    const quint64 before = m_map.version() + m_target.version();
    m_map.update(map, common);
    m_target.update(target, common);
    m_targetVersion = target.version();
    return m_map.version() + m_target.version() != before;
}

const QImage &
MapComparison::difference(const SpotList &map, const SpotList &target, const SpotStyle &style)
{
    if (update(map, target, style)) {
        const QImage &ours = m_map.image();
        const QImage &theirs = m_target.image();
        m_difference = excess(ours, theirs, QPainter::CompositionMode_Lighten, Qt::blue);
        const QImage below = excess(ours, theirs, QPainter::CompositionMode_Darken, Qt::red);
        add(m_difference, below, 1.0);
        m_overlay = QImage();
    }
    return m_difference;
}

const QImage &MapComparison::overlay(const SpotList &map,
                                     const SpotList &target,
                                     const SpotStyle &style,
                                     const QImage &data,
                                     quint64 dataVersion)
{
    // The difference holds both the blue and the red part.
    const QImage &parts = difference(map, target, style);
    if (m_overlay.isNull() || m_overlaid != dataVersion) {
        m_overlay = data;
        add(m_overlay, parts, overlayOpacity);
        m_overlaid = dataVersion;
    }
    return m_overlay;
}

} // namespace Corvale_Qt
