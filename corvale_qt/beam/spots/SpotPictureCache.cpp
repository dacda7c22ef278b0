// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotPictureCache_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"

#include <QPainter>

namespace Corvale_Qt {

KeptPicture::KeptPicture(std::unique_ptr<PictureStore> store, Draw draw)
    : m_store(std::move(store))
    , m_draw(draw)
{
}

void KeptPicture::update(const SpotList &spots, const SpotScene &scene)
{
    m_valid = m_valid && !m_store->isLost();
    const bool stale = !m_valid || scene != m_scene || spots.rewrites() != m_rewrites;
    if (stale)
        begin(scene);
    if (stale || spots.size() > m_painted) {
        paintFrom(m_painted, spots);
        m_painted = spots.size();
        m_rewrites = spots.rewrites();
        ++m_version;
    }
}

void KeptPicture::reset()
{
    m_valid = false;
}

void KeptPicture::setStore(std::unique_ptr<PictureStore> store)
{
    m_store = std::move(store);
    reset();
}

void KeptPicture::begin(const SpotScene &scene)
{
    const bool sameSize = m_valid && scene.pixels == m_scene.pixels;
    if (!sameSize && !m_store->resize(scene.pixels)) {
        // More than the driver gives: memory is the larger place.
        m_store = makeImageStore();
        m_store->resize(scene.pixels);
    }
    m_store->paint([&scene](QPainter &painter) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(QRect(QPoint(), scene.pixels), scene.background);
    });
    m_scene = scene;
    m_painted = 0;
    m_valid = true;
}

void KeptPicture::paintFrom(int first, const SpotList &spots)
{
    m_store->paint([&](QPainter &painter) {
        m_draw(painter, spots, first, m_scene);
    });
}

} // namespace Corvale_Qt
