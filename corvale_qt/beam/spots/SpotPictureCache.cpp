// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotPictureCache_p.h"

#include <QPainter>

namespace Corvale_Qt {

SpotPictureCache::SpotPictureCache(std::unique_ptr<PictureBuffer> store, Draw draw)
    : m_buffer(std::move(store))
    , m_draw(draw)
{
}

void SpotPictureCache::update(const SpotList &spots, const SpotStyle &style)
{
    m_valid = m_valid && !m_buffer->isLost();
    const bool stale = !m_valid || style != m_style || spots.rewrites() != m_rewrites;
    if (stale)
        begin(style);
    if (stale || spots.size() > m_painted) {
        paintFrom(m_painted, spots);
        m_painted = spots.size();
        m_rewrites = spots.rewrites();
        ++m_version;
    }
}

void SpotPictureCache::reset()
{
    m_valid = false;
}

void SpotPictureCache::setBuffer(std::unique_ptr<PictureBuffer> store)
{
    m_buffer = std::move(store);
    reset();
}

void SpotPictureCache::begin(const SpotStyle &style)
{
    const bool sameSize = m_valid && style.pixels == m_style.pixels;
    if (!sameSize && !m_buffer->resize(style.pixels)) {
        // The driver has no buffer of this size; memory has room for it.
        m_buffer = makeImageBuffer();
        m_buffer->resize(style.pixels);
    }
    m_buffer->paint([&style](QPainter &painter) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(QRect(QPoint(), style.pixels), style.background);
    });
    m_style = style;
    m_painted = 0;
    m_valid = true;
}

void SpotPictureCache::paintFrom(int first, const SpotList &spots)
{
    m_buffer->paint([&](QPainter &painter) {
        m_draw(painter, spots, first, m_style);
    });
}

} // namespace Corvale_Qt
