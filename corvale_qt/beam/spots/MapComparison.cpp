// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/MapComparison_p.h"
#include "corvale_qt/beam/spots/SpotDifference_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"

#include <QPainter>

namespace Corvale_Qt {

namespace {

void add(QImage &picture, const QImage &other, double opacity)
{
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.setOpacity(opacity);
    painter.drawImage(0, 0, other);
}

} // namespace

MapComparison::MapComparison()
    : m_map(makeImageStore(), drawSpots)
    , m_target(makeImageStore(), drawSpots)
{
}

bool MapComparison::update(const SpotList &map, const SpotList &target, const SpotScene &scene)
{
    SpotScene common = scene;
    common.fullScaleDose = qMax(map.largestDose(), target.largestDose());
    common.colour = Qt::white;
    common.background = Qt::black;

    const quint64 before = m_map.version() + m_target.version();
    m_map.update(map, common);
    m_target.update(target, common);
    m_targetVersion = target.version();
    return m_map.version() + m_target.version() != before;
}

const QImage &
MapComparison::difference(const SpotList &map, const SpotList &target, const SpotScene &scene)
{
    if (update(map, target, scene)) {
        const SpotDifference parts = compareMaps(m_map.image(), m_target.image());
        m_difference = parts.above;
        add(m_difference, parts.below, 1.0);
        m_overlay = QImage();
    }
    return m_difference;
}

const QImage &MapComparison::overlay(const SpotList &map,
                                     const SpotList &target,
                                     const SpotScene &scene,
                                     const QImage &data,
                                     quint64 dataVersion)
{
    // One part is blue, the other red: adding their sum is adding both.
    const QImage &parts = difference(map, target, scene);
    if (m_overlay.isNull() || m_overlaid != dataVersion) {
        m_overlay = data;
        add(m_overlay, parts, 0.5);
        m_overlaid = dataVersion;
    }
    return m_overlay;
}

} // namespace Corvale_Qt
