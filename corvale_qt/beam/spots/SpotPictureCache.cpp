// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotPictureCache_p.h"

namespace Corvale_Qt {

SpotPictureCache::SpotPictureCache(std::unique_ptr<SpotLayer> layer)
    : m_layer(std::move(layer))
{
}

void SpotPictureCache::update(const SpotList &spots, const SpotStyle &style)
{
    const bool stale = !m_valid || m_layer->isLost() || style != m_style;
    if (!stale && spots.version() == m_spotsVersion)
        return;
    if (stale)
        drawAll(spots, style);
    else if (spots.rewrites() == m_rewrites)
        m_layer->draw(spots, m_drawn);
    else if (!redrawChanges(spots))
        drawAll(spots, style);
    m_drawn = spots.size();
    m_spotsVersion = spots.version();
    m_rewrites = spots.rewrites();
    ++m_version;
}

void SpotPictureCache::reset()
{
    m_valid = false;
}

void SpotPictureCache::setLayer(std::unique_ptr<SpotLayer> layer)
{
    m_layer = std::move(layer);
    reset();
}

void SpotPictureCache::drawAll(const SpotList &spots, const SpotStyle &style)
{
    m_layer->begin(style);
    m_layer->draw(spots, 0);
    m_style = style;
    m_valid = true;
}

//! Draws only where spots have changed. Returns false if too much has changed, or if the picture cannot be drawn in parts.
bool SpotPictureCache::redrawChanges(const SpotList &spots)
{
    const bool anyAppended = spots.version() - m_spotsVersion != spots.rewrites() - m_rewrites;
    const std::optional<QRectF> area = spots.changedSince(m_rewrites);
    return !anyAppended && area && m_layer->redraw(spots, *area);
}

} // namespace Corvale_Qt
