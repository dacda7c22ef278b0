// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RingedMap_p.h"
#include "corvale_qt/beam/spots/SpotHitTest_p.h"

#include <QPainter>

#include <algorithm>

namespace Corvale_Qt {

namespace {

//! A ring that has no picture may be anywhere.
bool isLarge(const SelectionRing &ring)
{
    return ring.shape == 0;
}

SpotHitTest placesIn(const RingedMap::Scene &scene)
{
    return SpotHitTest(scene.spots, scene.bounds, QRect(QPoint(), scene.size));
}

void markStale(StaleTiles &stale, const SelectionRing &ring)
{
    if (isLarge(ring))
        stale.addAll();
    else
        stale.add(ring.pixels);
}

} // namespace

const QImage &RingedMap::image(const Scene &scene, const RowSpans &rows)
{
    if (!m_pictures.isFor(scene.color, scene.pixelRatio)) {
        reset();
        m_pictures = RingPictures(scene.color, scene.pixelRatio);
    }
    StaleTiles stale(scene.map.size());
    if (m_image.size() != scene.map.size()) {
        m_image = QImage(scene.map.size(), QImage::Format_RGB32);
        stale.addAll();
    }
    if (scene.map.cacheKey() != m_mapKey || scene.path.cacheKey() != m_pathKey)
        stale.addAll();
    m_mapKey = scene.map.cacheKey();
    m_pathKey = scene.path.cacheKey();
    findRings(scene, rows, stale);
    if (stale.isEmpty() || m_image.isNull())
        return m_image;
    if (std::any_of(m_rings.begin(), m_rings.end(), isLarge))
        stale.addAll();
    draw(scene, stale);
    return m_image;
}

void RingedMap::reset()
{
    m_image = QImage();
    m_rings.clear();
    m_places = {};
}

void RingedMap::findRings(const Scene &scene, const RowSpans &rows, StaleTiles &stale)
{
    const bool areKnown = m_places.spotsVersion == scene.spots.version()
        && m_places.bounds == scene.bounds && m_places.size == scene.size;
    m_places = {scene.spots.version(), scene.bounds, scene.size};
    if (!areKnown) {
        stale.addAll();
        m_rings.clear();
    }
    const SpotHitTest places = placesIn(scene);
    std::vector<SelectionRing> rings;
    rings.reserve(m_rings.size());
    auto known = m_rings.cbegin();
    const auto dropUpTo = [&](int row) {
        for (; known != m_rings.cend() && known->row < row; ++known)
            markStale(stale, *known);
    };
    for (const RowSpan &span : rows) {
        for (int row = span.first; row <= std::min(span.last, scene.spots.size() - 1); ++row) {
            dropUpTo(row);
            if (known != m_rings.cend() && known->row == row) {
                rings.push_back(*known++);
            } else if (isDrawable(scene.spots.at(row))) {
                rings.push_back(m_pictures.ringOf(row, places.pixelOf(row), places.radiusOf(row)));
                markStale(stale, rings.back());
            }
        }
    }
    dropUpTo(scene.spots.size());
    m_rings = std::move(rings);
}

void RingedMap::draw(const Scene &scene, const StaleTiles &stale)
{
    const QVector<QRect> parts = stale.rects();
    QPainter painter(&m_image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect &part : parts)
        painter.drawImage(part.topLeft(), scene.map, part);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    for (const QRect &part : parts) {
        if (!scene.path.isNull())
            painter.drawImage(part.topLeft(), scene.path, part);
    }
    const std::vector<SelectionRing> visible = visibleRings(stale);
    for (auto ring = visible.rbegin(); ring != visible.rend(); ++ring)
        drawRing(painter, scene, *ring, parts);
}

void RingedMap::drawRing(QPainter &painter,
                         const Scene &scene,
                         const SelectionRing &ring,
                         const QVector<QRect> &parts)
{
    if (isLarge(ring)) {
        const SpotHitTest places = placesIn(scene);
        m_pictures.drawLarge(painter, places.pixelOf(ring.row), places.radiusOf(ring.row));
        return;
    }
    const QImage &picture = m_pictures.picture(ring).image;
    for (const QRect &part : parts) {
        if (part.bottom() < ring.pixels.top())
            continue;
        if (part.top() > ring.pixels.bottom())
            break;
        const QRect shown = ring.pixels & part;
        if (!shown.isEmpty())
            painter.drawImage(shown.topLeft(), picture, shown.translated(-ring.pixels.topLeft()));
    }
}

std::vector<SelectionRing> RingedMap::visibleRings(const StaleTiles &stale)
{
    PixelCover cover(m_image.size(), stale.rects());
    std::vector<SelectionRing> rings;
    for (auto ring = m_rings.rbegin(); ring != m_rings.rend(); ++ring) {
        if (!isLarge(*ring)) {
            if (!stale.touches(ring->pixels))
                continue;
            const RingPictures::Picture &picture = m_pictures.picture(*ring);
            if (cover.hides(picture.visible, ring->pixels.topLeft()))
                continue;
            cover.add(picture.opaque, ring->pixels.topLeft());
        }
        rings.push_back(*ring);
    }
    return rings;
}

} // namespace Corvale_Qt
