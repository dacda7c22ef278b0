// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/StaleTiles_p.h"

#include <algorithm>

namespace Corvale_Qt {

StaleTiles::StaleTiles(const QSize &pixels)
    : m_pixels(QPoint(), pixels)
    , m_size((pixels.width() + side - 1) / side, (pixels.height() + side - 1) / side)
    , m_tiles(std::size_t(m_size.width()) * std::size_t(m_size.height()))
{
}

void StaleTiles::add(const QRect &part)
{
    const QRect tiles = tilesOf(part);
    for (int y = tiles.top(); y <= tiles.bottom(); ++y)
        std::fill_n(m_tiles.begin() + placeOf(tiles.left(), y), tiles.width(), char(1));
    m_isEmpty = m_isEmpty && tiles.isEmpty();
}

void StaleTiles::addAll()
{
    add(m_pixels);
}

bool StaleTiles::touches(const QRect &part) const
{
    const QRect tiles = tilesOf(part);
    for (int y = tiles.top(); y <= tiles.bottom(); ++y) {
        for (int x = tiles.left(); x <= tiles.right(); ++x) {
            if (m_tiles[std::size_t(placeOf(x, y))])
                return true;
        }
    }
    return false;
}

QVector<QRect> StaleTiles::rects() const
{
    QVector<QRect> rects;
    for (int y = 0; y < m_size.height(); ++y) {
        const auto row = m_tiles.begin() + placeOf(0, y), end = row + m_size.width();
        for (auto first = std::find(row, end, 1); first != end;) {
            const auto behind = std::find(first, end, 0);
            const QRect tiles(int(first - row), y, int(behind - first), 1);
            rects.append(QRect(tiles.topLeft() * side, tiles.size() * side) & m_pixels);
            first = std::find(behind, end, 1);
        }
    }
    return rects;
}

std::ptrdiff_t StaleTiles::placeOf(int column, int row) const
{
    return std::ptrdiff_t(row) * m_size.width() + column;
}

QRect StaleTiles::tilesOf(const QRect &part) const
{
    // Qt's intersection is a call, and this is asked for each of thousands of rings.
    const int left = std::max(part.left(), 0), right = std::min(part.right(), m_pixels.right());
    const int top = std::max(part.top(), 0), bottom = std::min(part.bottom(), m_pixels.bottom());
    if (left > right || top > bottom)
        return QRect();
    return QRect(QPoint(left / side, top / side), QPoint(right / side, bottom / side));
}

} // namespace Corvale_Qt
